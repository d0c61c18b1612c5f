#include "core/KelMediaLibException.h"
#include "media/media/AMFile.h"
#include "media/media/AudioTransition.h"
#include "media/media/Callout.h"
#include "media/media/IMFile.h"
#include "media/media/ImageTransition.h"
#include "media/media/MediaTestSupport.h"
#include "media/media/TextBox.h"
#include "media/media/VMFile.h"
#include "media/timeline/AudioMixer.h"
#include "media/timeline/AudioTrack.h"
#include "media/timeline/ImageTrack.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/VisualMixer.h"
#include "media/timeline/VisualTrack.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace KelMediaLib;

namespace {

typedef Range<long long> R;

struct TrackMixerTest : ::testing::Test {
  mediatest::Project p;

  boost::shared_ptr<Media> imageAt(long long start) {
    const boost::shared_ptr<IMFile> image = IMFile::create(0, 10, p.lock, p.source, 0);
    image->setStart(start);
    return image;
  }

  std::vector<const Media*> order(const Track& track) {
    std::vector<const Media*> medias;
    for (const boost::shared_ptr<const Media>& media : track.medias()) {
      medias.push_back(media.get());
    }
    return medias;
  }
};

TEST_F(TrackMixerTest, TracksKeepStartOrderAndPutArrivalsBehindEqualStarts) {
  const boost::shared_ptr<VisualTrack> track = VisualTrack::create(p.lock);
  const boost::shared_ptr<Media> a = imageAt(20), b = imageAt(10), c = imageAt(20), d = imageAt(0);
  mediatest::CountingObserver observer;
  track->attach(&observer);
  for (const auto& media : {a, b, c, d}) {
    track->insertMedia(media);
  }
  EXPECT_EQ(track, a->parent());
  EXPECT_EQ((std::vector<const Media*>{d.get(), b.get(), a.get(), c.get()}), order(*track));

  // Moves one after the other: the moved media goes behind those that start
  // where it now starts, and the others keep their order.
  struct Step {
    boost::shared_ptr<Media> moved;
    long long start;
    std::vector<const Media*> expected;
  };
  const Step steps[] = {
      {d, 20, {b.get(), a.get(), c.get(), d.get()}}, {b, 30, {a.get(), c.get(), d.get(), b.get()}},
      {c, 5, {c.get(), a.get(), d.get(), b.get()}},  {a, 20, {c.get(), a.get(), d.get(), b.get()}},
      {b, 0, {b.get(), c.get(), a.get(), d.get()}},
  };
  int changes = 4;
  for (const Step& step : steps) {
    SCOPED_TRACE(step.start);
    const long long previous = step.moved->range().start;
    step.moved->setStart(step.start);
    track->placeAgain(step.moved.get(), previous);
    changes += previous != step.start ? 1 : 0;
    EXPECT_EQ(step.expected, order(*track));
    EXPECT_EQ(changes, observer.count);
  }
  EXPECT_THROW(track->placeAgain(a.get(), 21), KelMediaLibException);
  EXPECT_THROW(track->placeAgain(imageAt(20).get(), 20), KelMediaLibException);

  // The second of two media at one start is the one erased.
  track->eraseMedia(d.get());
  EXPECT_EQ((std::vector<const Media*>{b.get(), c.get(), a.get()}), order(*track));
  EXPECT_FALSE(d->parent());
  EXPECT_THROW(track->eraseMedia(d.get()), KelMediaLibException);
  EXPECT_THROW(track->insertMedia(boost::shared_ptr<Media>()), KelMediaLibException);
  EXPECT_THROW(VisualTrack::create(p.lock)->insertMedia(a), KelMediaLibException);
  EXPECT_EQ(changes + 1, observer.count);
  track->detach(&observer);

  std::vector<const VisualMedia*> walked;
  for (auto it = track->visualMediaBegin(); it != track->visualMediaEnd(); ++it) {
    walked.push_back(it->get());
  }
  std::vector<const VisualMedia*> expected;
  for (const Media* media : order(*track)) {
    expected.push_back(dynamic_cast<const VisualMedia*>(media));
  }
  EXPECT_EQ(expected, walked);
}

TEST_F(TrackMixerTest, EachTrackKindAcceptsItsMediaKinds) {
  const std::vector<std::pair<std::string, boost::shared_ptr<Media>>> medias = {
      {"VMFile", VMFile::create(R(0, 10), p.lock, p.source, 0)},
      {"IMFile", IMFile::create(0, 10, p.lock, p.source, 0)},
      {"TextBox", TextBox::create("", 10, 1.0f, 1.0f, p.lock)},
      {"Callout", Callout::create(0, 10, p.lock, p.source, 0)},
      {"ImageTransition", ImageTransition::create(10, p.lock)},
      {"AMFile", AMFile::create(R(0, 10), p.lock, p.source, 1, {})},
      {"AudioTransition", AudioTransition::create(10, p.lock)},
  };
  struct Case {
    boost::shared_ptr<Track> track;
    std::string accepted;  // initials of the kinds above, in order
  };
  const Case cases[] = {{VisualTrack::create(p.lock), "VITCI.."},
                        {ImageTrack::create(p.lock), ".ITCI.."},
                        {AudioTrack::create(p.lock), ".....AA"}};
  for (const Case& c : cases) {
    for (std::size_t i = 0; i < medias.size(); ++i) {
      SCOPED_TRACE(medias[i].first);
      const bool accepts = c.accepted[i] != '.';
      EXPECT_EQ(accepts, c.track->accepts(*medias[i].second));
      if (!accepts) {
        EXPECT_THROW(c.track->insertMedia(medias[i].second), KelMediaLibException);
        EXPECT_FALSE(medias[i].second->parent());
      }
    }
    EXPECT_EQ(0, c.track->numMedias());
  }
}

TEST_F(TrackMixerTest, MixersHaveAValidSizeAndInsertRemoveAndSwapTracksOfTheirKind) {
  const boost::shared_ptr<VisualMixer> mixer = VisualMixer::create(640, 480, p.lock);
  const boost::shared_ptr<Track> first = mixer->makeTrack(p.lock);
  const boost::shared_ptr<Track> second = ImageTrack::create(p.lock);
  const boost::shared_ptr<Track> third = mixer->makeTrack(p.lock);
  EXPECT_TRUE(boost::dynamic_pointer_cast<VisualTrack>(first));
  mediatest::CountingObserver observer;
  mixer->attach(&observer);

  mixer->insertTrack(first, -1);
  mixer->insertTrack(third, 1);
  mixer->insertTrack(second, 1);
  EXPECT_EQ(3, observer.count);
  EXPECT_EQ((std::vector<boost::shared_ptr<const Track>>{first, second, third}), mixer->tracks());
  EXPECT_EQ(2, mixer->indexOfTrack(third.get()));
  EXPECT_EQ(mixer, first->parent().lock());

  EXPECT_THROW(mixer->insertTrack(first, -1), KelMediaLibException);
  EXPECT_THROW(mixer->insertTrack(AudioTrack::create(p.lock), -1), KelMediaLibException);
  EXPECT_THROW(mixer->insertTrack(VisualTrack::create(p.lock), 5), KelMediaLibException);
  EXPECT_THROW(mixer->insertTrack(VisualTrack::create(p.lock), -2), KelMediaLibException);
  EXPECT_THROW(mixer->removeTrack(3), KelMediaLibException);
  EXPECT_THROW(mixer->swapTracks(0, 3), KelMediaLibException);
  EXPECT_EQ(3, mixer->numTracks());
  EXPECT_EQ(3, observer.count);

  mixer->swapTracks(0, 2);
  EXPECT_EQ((std::vector<boost::shared_ptr<const Track>>{third, second, first}), mixer->tracks());
  EXPECT_EQ(second, mixer->removeTrack(1));
  EXPECT_FALSE(second->parent().lock());
  EXPECT_EQ(-1, mixer->indexOfTrack(second.get()));
  EXPECT_EQ(5, observer.count);
  mixer->detach(&observer);

  const boost::shared_ptr<AudioMixer> audio = AudioMixer::create(48000, 16, 2, p.lock);
  EXPECT_TRUE(boost::dynamic_pointer_cast<AudioTrack>(audio->makeTrack(p.lock)));
  EXPECT_THROW(audio->insertTrack(VisualTrack::create(p.lock), -1), KelMediaLibException);
  EXPECT_THROW(VisualMixer::create(-1.0f, 10.0f, p.lock), KelMediaLibException);
  EXPECT_NO_THROW(VisualMixer::create(0.0f, 0.0f, p.lock));
}

TEST_F(TrackMixerTest, AllMediasListsVisualMixerFirstThenTrackAndStartOrder) {
  const boost::shared_ptr<Timeline> timeline = Timeline::create();
  EXPECT_TRUE(timeline->allMedias().empty());
  const boost::shared_ptr<VisualMixer> visual = VisualMixer::create(640, 480, p.lock);
  const boost::shared_ptr<AudioMixer> audio = AudioMixer::create(48000, 16, 2, p.lock);
  timeline->setAudioMixer(audio);
  timeline->setVisualMixer(visual);
  const boost::shared_ptr<Track> top = visual->makeTrack(p.lock);
  const boost::shared_ptr<Track> bottom = visual->makeTrack(p.lock);
  const boost::shared_ptr<Track> sound = audio->makeTrack(p.lock);
  audio->insertTrack(sound, -1);
  visual->insertTrack(top, -1);
  visual->insertTrack(bottom, -1);
  const boost::shared_ptr<Media> late = imageAt(50), early = imageAt(0), under = imageAt(0);
  const boost::shared_ptr<Media> voice = AMFile::create(R(0, 10), p.lock, p.source, 1, {0});
  sound->insertMedia(voice);
  bottom->insertMedia(under);
  top->insertMedia(late);
  top->insertMedia(early);
  EXPECT_EQ((std::vector<boost::shared_ptr<const Media>>{early, late, under, voice}),
            timeline->allMedias());
}

TEST_F(TrackMixerTest, ImageTransitionTakesTheSizeOfItsMixer) {
  const boost::shared_ptr<VisualMixer> mixer = VisualMixer::create(800, 600, p.lock);
  const boost::shared_ptr<Track> track = mixer->makeTrack(p.lock);
  mixer->insertTrack(track, -1);
  const boost::shared_ptr<ImageTransition> wipe = ImageTransition::create(10, p.lock);
  EXPECT_EQ(0.0f, wipe->width());
  track->insertMedia(wipe);
  EXPECT_EQ(800.0f, wipe->width());
  EXPECT_EQ(600.0f, wipe->height());
}

}  // namespace
