#pragma once

#include "core/Observer.h"
#include "core/ThreadSafe.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

namespace mediatest {

/// Counts the notifications of a subject.
struct CountingObserver : KelMediaLib::Observer {
  int count = 0;
  void observerUpdate() override { ++count; }
};

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
