#pragma once

#include "core/KelObject.h"

#include <boost/shared_ptr.hpp>

#include <map>

namespace KelMediaLib {

class Effect;
class Media;
class Source;
class Track;
template <class T>
class Parameter;

/// Maps the idents of one project file to the objects read for them, one
/// table per kind: the same number may name a source, a media and a track
/// at once. A later entry under an ident replaces an earlier one.
class SymbolTable : public KelObject {
 public:
  SymbolTable();
  ~SymbolTable() override;

  void addSymbol(unsigned int ident, const boost::shared_ptr<const Source>& source);
  void addSymbol(unsigned int ident, const boost::shared_ptr<const Media>& media);
  void addSymbol(unsigned int ident, const boost::shared_ptr<const Track>& track);
  void addSymbol(unsigned int ident, const boost::shared_ptr<const Effect>& effect);
  void addParameterSymbol(unsigned int ident,
                          const boost::shared_ptr<const Parameter<double>>& parameter);

  /// The object of kind `T` entered under `ident`, or null if the entry is of
  /// another kind of the same table. An ident not in the table prints
  /// "symbolFinder throw Ident = <ident>" and throws
  /// `ValueException<unsigned int>` "ident not found in source table".
  /// `T` is `Source`, `Media` or one of its kinds, `Track` or one of its
  /// kinds, `Parameter<double>`, or `Effect` or one of its kinds.
  template <class T>
  boost::shared_ptr<const T> symbolForIdent(unsigned int ident) const;

  /// Whether `ident` names a source or a media; never throws.
  bool hasSymbolForIdent(unsigned int ident) const;

 private:
  template <class Base>
  using Table = std::map<unsigned int, boost::shared_ptr<const Base>>;

  const Table<Source>& table(const Source*) const { return sources_; }
  const Table<Media>& table(const Media*) const { return media_; }
  const Table<Track>& table(const Track*) const { return tracks_; }
  const Table<Parameter<double>>& table(const Parameter<double>*) const { return parameters_; }
  const Table<Effect>& table(const Effect*) const { return effects_; }

  Table<Source> sources_;
  Table<Media> media_;
  Table<Track> tracks_;
  Table<Parameter<double>> parameters_;
  Table<Effect> effects_;
};

}  // namespace KelMediaLib
