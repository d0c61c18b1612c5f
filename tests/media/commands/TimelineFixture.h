#pragma once

// A small project built through commands: a visual mixer with a video track,
// a second video track and an image track, an audio mixer with one track,
// and a source with a video and an audio track of 10000 units.

#include "media/ModelSnapshot.h"

#include "core/KelMediaLibException.h"
#include "media/commands/AddEffectCmd.h"
#include "media/commands/AddLeftEdgeModCmd.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/LinkCmd.h"
#include "media/commands/NewAudioMixerCmd.h"
#include "media/commands/NewAudioTrackCmd.h"
#include "media/commands/NewImageTrackCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/edges/FadeInFunc.h"
#include "media/effects/GenericEffect.h"
#include "media/media/AMFile.h"
#include "media/media/Callout.h"
#include "media/media/IMFile.h"
#include "media/media/TextBox.h"
#include "media/media/VMFile.h"
#include "media/project/CommandHistory.h"
#include "media/project/InternalProject.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/timeline/AudioTrack.h"
#include "media/timeline/VisualTrack.h"
#include "values/InterpolatingParam.h"

#include <gtest/gtest.h>

#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>

#include <string>

namespace KelMediaLib {
namespace testSupport {

class TimelineFixture : public ::testing::Test {
 public:
  void SetUp() override {
    project = InternalProject::create(EditRate(30, 1));
    run(NewVisualMixerCmd::create(640, 480));
    run(NewAudioMixerCmd::create(44100, 16, 2));
    video = newVisualTrack();
    video2 = newVisualTrack();
    const auto imageCmd = NewImageTrackCmd::create(-1);
    run(imageCmd);
    images = imageCmd->visualTrack();
    const auto audioCmd = NewAudioTrackCmd::create(-1);
    run(audioCmd);
    audio = audioCmd->audioTrack();

    const boost::shared_ptr<MediaFileStats> stats = MediaFileStats::create();
    stats->setFilename("capture.mov");
    MediaFileStats::TrackStats picture;
    picture.range = Range<long long>(0, 10000);
    picture.type = MediaFileStats::Video;
    stats->addTrackStats(picture);
    MediaFileStats::TrackStats sound;
    sound.range = Range<long long>(0, 10000);
    sound.type = MediaFileStats::Audio;
    stats->addTrackStats(sound);
    source = Source::create(stats);
    project->loadSource(source);
  }

  boost::weak_ptr<const ThreadSafe> weak() const {
    return boost::weak_ptr<const ThreadSafe>(project);
  }

  void run(const boost::shared_ptr<Command>& command) { ASSERT_TRUE(project->execute(command)); }

  boost::shared_ptr<const VisualTrack> newVisualTrack() {
    const auto command = NewVisualTrackCmd::create(-1);
    project->execute(command);
    return command->visualTrack();
  }

  /// A clip of the source's video showing (mediaStart, duration), on no track.
  boost::shared_ptr<VMFile> clip(long long mediaStart, long long duration) const {
    return VMFile::create(Range<long long>(mediaStart, duration), weak(), source, 0);
  }
  boost::shared_ptr<AMFile> sound(long long mediaStart, long long duration) const {
    return AMFile::create(Range<long long>(mediaStart, duration), weak(), source, 1, {0, 1});
  }
  boost::shared_ptr<IMFile> image(long long duration) const {
    return IMFile::create(0, duration, weak(), source, 0);
  }

  template <class M>
  boost::shared_ptr<M> add(const boost::shared_ptr<const Track>& track,
                           const boost::shared_ptr<M>& media, long long time) {
    project->execute(AddMediaCmd::create(track, media, time));
    return media;
  }

  /// Key frames on the media's opacity at source times 150, 200 and 250.
  void animate(const boost::shared_ptr<VisualMedia>& media) {
    media->opacity()->addKeyFrame(150, 0.0);
    media->opacity()->addKeyFrame(200, 0.5);
    media->opacity()->addKeyFrame(250, 1.0);
  }

  std::string snapshot() const { return modelSnapshot(*project); }

  boost::shared_ptr<InternalProject> project;
  boost::shared_ptr<const VisualTrack> video;
  boost::shared_ptr<const VisualTrack> video2;
  boost::shared_ptr<const VisualTrack> images;
  boost::shared_ptr<const AudioTrack> audio;
  boost::shared_ptr<const Source> source;
};

}  // namespace testSupport
}  // namespace KelMediaLib
