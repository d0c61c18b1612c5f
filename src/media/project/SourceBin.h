#pragma once

#include "core/KelObject.h"
#include "core/Subject.h"
#include "core/XMLable.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KelMediaLib {

class Clipping;
class Source;

/// The source files of a project and the clippings marked in them. Sources
/// stand in the order they were made (by XML ident), so that a source
/// unloaded and loaded again by undo comes back to its place. Edits are the
/// project's, under its write lock; each notifies the observers once.
///
/// Written as `<SourceBin>` holding each source; clippings aren't written.
class SourceBin : public KelObject, public Subject, public XMLable {
 public:
  static boost::shared_ptr<SourceBin> create();

  /// A new list of the sources in order.
  std::vector<boost::shared_ptr<const Source>> sources() const;
  bool containsSource(const Source* source) const;
  /// A new list of the clippings in the order they were added.
  std::vector<boost::shared_ptr<Clipping>> clippings() const;

  /// Throws `KelMediaLibException` on a null source or one held already.
  void addSource(boost::shared_ptr<const Source> source);
  /// Throws `KelMediaLibException` unless the source is held.
  void removeSource(const Source* source);
  /// Throws on a null clipping or one held already.
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
};

}  // namespace KelMediaLib
