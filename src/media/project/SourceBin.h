#pragma once

#include "core/KelObject.h"
#include "core/Subject.h"
#include "core/XMLable.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KelMediaLib {

class Clipping;
class Source;
class SourceBinSentry;

/// The source files of a project and the clippings marked in them. Sources
/// stand in the order they were made (by XML ident), clippings likewise (by
/// serial), so that one taken out and put back by undo comes back to its
/// place. Edits are the project's, under its write lock; each notifies the
/// observers once, and the sentries are told of each source that comes or
/// goes.
///
/// Written as `<SourceBin>` holding each source; clippings aren't written.
class SourceBin : public KelObject, public Subject, public XMLable {
 public:
  static boost::shared_ptr<SourceBin> create();

  /// A new list of the sources in order.
  std::vector<boost::shared_ptr<const Source>> sources() const;
  bool containsSource(const Source* source) const;
  /// A new list of the clippings in the order they were made.
  std::vector<boost::shared_ptr<Clipping>> clippings() const;

  /// Throws `KelMediaLibException` on a null source or one held already.
  /// A sentry that throws undoes the addition (see `SourceBinSentry`).
  void addSource(boost::shared_ptr<const Source> source);
  /// Throws `KelMediaLibException` unless the source is held. A sentry that
  /// throws undoes the removal.
  void removeSource(const Source* source);
  /// The sentry is kept (shared) and told of later changes, after those
  /// added before it. Throws on null or on a sentry kept already.
  void addSentry(boost::shared_ptr<SourceBinSentry> sentry);
  /// Throws on a null clipping, one held already, or one of a source that
  /// isn't in the bin.
  void addClipping(boost::shared_ptr<Clipping> clipping);
  /// Throws unless the clipping is held.
  void removeClipping(const Clipping* clipping);

  void xmlName(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  bool xmlHasAttributes() const override { return false; }

 private:
  SourceBin();

  std::vector<boost::shared_ptr<const Source>> sources_;
  std::vector<boost::shared_ptr<Clipping>> clippings_;
  std::vector<boost::shared_ptr<SourceBinSentry>> sentries_;
};

}  // namespace KelMediaLib
