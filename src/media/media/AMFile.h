#pragma once

#include "media/media/AudioMedia.h"
#include "media/media/FileRepresentation.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <istream>
#include <ostream>
#include <set>

namespace KelMediaLib {

/// A stretch of an audio track of a source file, playing some of its
/// channels. Bounded by its source like a `VMFile`. Sample rate and bit
/// depth start as the source track's.
///
/// Written as `<AMFile id start duration scalar mediaStart mediaDuration
/// trackNumber src channelNumber>` with parameters, attributes, links and
/// edges.
class AMFile : public AudioMedia, public FileRepresentation {
 public:
  /// As `VMFile::create`, with the channels (0-based) to play.
  static boost::shared_ptr<AMFile> create(Range<long long> mediaRange,
                                          boost::weak_ptr<const ThreadSafe> project,
                                          boost::shared_ptr<const Source> source,
                                          unsigned int trackIndex,
                                          const std::set<unsigned int>& channels);

  const std::set<unsigned int>& channels() const { return channels_; }

  /// Reads a channel list, "(0,1)" or "()" for none: brackets, unsigned
  /// numbers and commas, no blanks. Replaces `channels` only when the whole
  /// form was read; throws `KelMediaLibException` on anything else.
  static void readChannels(std::istream& in, std::set<unsigned int>& channels);
  /// Writes the form that `readChannels` reads, numbers ascending.
  static void writeChannels(std::ostream& out, const std::set<unsigned int>& channels);

  void dispatch(ConstMediaDispatcher& dispatcher) const override;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  Media* copyKind() const override;
  void checkMediaTimeRange(long long mediaStart, long long mediaDuration) const override;

 private:
  AMFile(Range<long long> mediaRange, boost::weak_ptr<const ThreadSafe> project,
         boost::shared_ptr<const Source> source, unsigned int trackIndex,
         const std::set<unsigned int>& channels);
  AMFile(const AMFile& other);

  std::set<unsigned int> channels_;
};

}  // namespace KelMediaLib
