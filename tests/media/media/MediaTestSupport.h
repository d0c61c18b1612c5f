#pragma once

#include "core/CloneDecorator.h"
#include "core/Observer.h"
#include "core/ThreadSafe.h"
#include "core/XMLable.h"
#include "media/media/Media.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace mediatest {

/// Counts the notifications of a subject.
struct CountingObserver : KelMediaLib::Observer {
  int count = 0;
  void observerUpdate() override { ++count; }
};

/// Notes the source and the clone of each run; sets `*deleted` when deleted.
struct RecordingDecorator : KelMediaLib::CloneDecorator<KelMediaLib::Media> {
  struct Call {
    const KelMediaLib::Media* source;
    const KelMediaLib::Media* clone;
  };
  explicit RecordingDecorator(std::vector<Call>& calls, bool* deleted = nullptr)
      : calls_(calls), deleted_(deleted) {}
  ~RecordingDecorator() override {
    if (deleted_) *deleted_ = true;
  }
  void execute(const KelMediaLib::Media* source,
               boost::shared_ptr<const KelMediaLib::Media> clone) override {
    calls_.push_back(Call{source, clone.get()});
  }
  std::vector<Call>& calls_;
  bool* deleted_;
};

/// The element the object writes.
inline std::string xmlOf(const KelMediaLib::XMLable& object) {
  std::ostringstream out;
  KelMediaLib::XMLable::Options options(out);
  object.toXML(options, 0, std::string());
  return out.str();
}

/// The text of the E that `run` throws; "" when it throws none.
template <class E, class F>
std::string whatOf(F run) {
  try {
    run();
  } catch (const E& e) {
    return e.what();
  }
  return std::string();
}

/// A source with one video track (0,300) of 640x480 and one audio track
/// (0,300) at 48000 Hz, 16 bits, stereo.
inline boost::shared_ptr<KelMediaLib::Source> makeSource() {
  using KelMediaLib::MediaFileStats;
  const boost::shared_ptr<MediaFileStats> stats = MediaFileStats::create();
  stats->setFilename("clip.mov");
  stats->setRect(KelMediaLib::Rect<int>(0, 0, 640, 480));
  MediaFileStats::TrackStats video;
  video.range = KelMediaLib::Range<long long>(0, 300);
  video.editRate = KelMediaLib::EditRate(30, 1);
  video.type = MediaFileStats::Video;
  video.trackRect = KelMediaLib::Rect<int>(0, 0, 640, 480);
  stats->addTrackStats(video);
  MediaFileStats::TrackStats audio;
  audio.range = KelMediaLib::Range<long long>(0, 300);
  audio.editRate = KelMediaLib::EditRate(30, 1);
  audio.type = MediaFileStats::Audio;
  audio.sampleRate = KelMediaLib::EditRate(48000, 1);
  audio.bitDepth = 16;
  audio.numChannels = 2;
  audio.fileName = "clip-audio.wav";
  stats->addTrackStats(audio);
  return KelMediaLib::Source::create(stats);
}

/// Owner of the project lock that the model objects of a test share.
struct Project {
  boost::shared_ptr<KelMediaLib::ThreadSafe> lock = boost::make_shared<KelMediaLib::ThreadSafe>();
  boost::shared_ptr<KelMediaLib::Source> source = makeSource();
};

}  // namespace mediatest
