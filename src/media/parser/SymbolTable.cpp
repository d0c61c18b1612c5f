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
  sources_[ident] = source;
}

void SymbolTable::addSymbol(unsigned int ident, const boost::shared_ptr<const Media>& media) {
  media_[ident] = media;
}

void SymbolTable::addSymbol(unsigned int ident, const boost::shared_ptr<const Track>& track) {
  tracks_[ident] = track;
}

void SymbolTable::addSymbol(unsigned int ident, const boost::shared_ptr<const Effect>& effect) {
  effects_[ident] = effect;
}

void SymbolTable::addParameterSymbol(unsigned int ident,
                                     const boost::shared_ptr<const Parameter<double>>& parameter) {
  parameters_[ident] = parameter;
}

bool SymbolTable::hasSymbolForIdent(unsigned int ident) const {
  return sources_.count(ident) != 0 || media_.count(ident) != 0;
}

}  // namespace KelMediaLib
