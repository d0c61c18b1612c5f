#include "media/edges/FadeInFunc.h"

#include "core/XMLText.h"

#include <ostream>

namespace KelMediaLib {

FadeInFunc* FadeInFunc::clone() const { return new FadeInFunc(*this); }

void FadeInFunc::xmlName(Options& options) const { writeLiteral(options.out, "FadeInFunc"); }

double FadeInFunc::applyClamped(double value, double fraction) const { return value * fraction; }

}  // namespace KelMediaLib
