#include "media/parser/SymbolTable.h"

#include "media/effects/Effect.h"
#include "media/media/Media.h"
#include "media/sources/Source.h"
#include "media/timeline/Track.h"
#include "values/Parameter.h"

namespace KelMediaLib {

SymbolTable::SymbolTable() = default;

SymbolTable::~SymbolTable() = default;

void SymbolTable::addSymbol(unsigned int ident, const boost::shared_ptr<const Source>& source) {
  sources_.put(ident, source);
}

void SymbolTable::addSymbol(unsigned int ident, const boost::shared_ptr<const Media>& media) {
  media_.put(ident, media);
}

void SymbolTable::addSymbol(unsigned int ident, const boost::shared_ptr<const Track>& track) {
  tracks_.put(ident, track);
}

void SymbolTable::addSymbol(unsigned int ident, const boost::shared_ptr<const Effect>& effect) {
  effects_.put(ident, effect);
}

void SymbolTable::addParameterSymbol(unsigned int ident,
                                     const boost::shared_ptr<const Parameter<double>>& parameter) {
  parameters_.put(ident, parameter);
}

void SymbolTable::forgetParameters() {
  parameters_.clear();
}

bool SymbolTable::hasSymbolForIdent(unsigned int ident) const {
  return sources_.find(ident) || media_.find(ident);
}

}  // namespace KelMediaLib
