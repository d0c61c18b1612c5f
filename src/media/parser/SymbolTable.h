#pragma once

#include "core/KelObject.h"

#include <boost/shared_ptr.hpp>

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>
#include <vector>

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
  /// Forgets the parameters entered so far (those of a media whose element
  /// has ended), keeping the room they took for the next ones.
  void forgetParameters();

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
  /// The objects of one kind by ident. A writer numbers a document's objects
  /// in order, so most idents come ascending and go to the end of a sorted
  /// vector; one out of order (a hand-made file) goes into a map. A load of
  /// thousands of media enters a quarter of a million parameters, and a
  /// map's node for each was the most the load held beside the model.
  template <class Base>
  class Table {
   public:
    void put(unsigned int ident, const boost::shared_ptr<const Base>& object) {
      const std::size_t at = placeOf(ident);
      if (at == ascending_.size()) {
        ascending_.emplace_back(ident, object);
      } else if (ascending_[at].first == ident) {
        ascending_[at].second = object;
      } else {
        others_[ident] = object;
      }
    }
    void clear() {
      ascending_.clear();
      others_.clear();
    }
    /// The entry of `ident`; null if there is none.
    const boost::shared_ptr<const Base>* find(unsigned int ident) const {
      const std::size_t at = placeOf(ident);
      if (at < ascending_.size() && ascending_[at].first == ident) {
        return &ascending_[at].second;
      }
      const auto other = others_.find(ident);
      return other == others_.end() ? nullptr : &other->second;
    }

   private:
    typedef std::pair<unsigned int, boost::shared_ptr<const Base>> Entry;
    // Where `ident` is or would go in the ascending entries.
    std::size_t placeOf(unsigned int ident) const {
      return static_cast<std::size_t>(
          std::lower_bound(ascending_.begin(), ascending_.end(), ident,
                           [](const Entry& entry, unsigned int key) { return entry.first < key; }) -
          ascending_.begin());
    }

    std::vector<Entry> ascending_;
    std::map<unsigned int, boost::shared_ptr<const Base>> others_;
  };

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
