#include "actions/CenterAction.h"

#include "core/XMLText.h"

#include <ostream>

namespace OrvMediaLib {

CenterAction::CenterAction(boost::shared_ptr<const KelMediaLib::Parametric> parametric,
                           const KelMediaLib::Range<long long>& timeRange)
    : ActionImpl(parametric, timeRange) {}

CenterAction::CenterAction(boost::shared_ptr<const KelMediaLib::Parametric> parametric)
    : ActionImpl(parametric, KelMediaLib::Range<long long>(0, 0)) {}

CenterAction::CenterAction(const CenterAction& other) : ActionImpl(other) {}

CenterAction* CenterAction::clone() const {
  return new CenterAction(*this);
}

void CenterAction::xmlName(Options& options) const {
  KelMediaLib::writeLiteral(options.out, "CenterAction");
}

}  // namespace OrvMediaLib
