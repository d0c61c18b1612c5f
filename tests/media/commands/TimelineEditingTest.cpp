#include "media/commands/TimelineFixture.h"
#include "media/media/MediaTestSupport.h"

#include "media/commands/AddRightEdgeModCmd.h"
#include "media/commands/MoveLeftEdgeModCmd.h"
#include "media/commands/MoveMediaCmd.h"
#include "media/commands/MoveRightEdgeModCmd.h"
#include "media/commands/RemoveEffectCmd.h"
#include "media/commands/RemoveMediaCmd.h"
#include "media/commands/RemoveTrackCmd.h"
#include "media/commands/SplitMediaCmd.h"
#include "media/commands/StretchCmd.h"
#include "media/commands/SwapTracksCmd.h"
#include "media/commands/TrimEndCmd.h"
#include "media/commands/TrimStartCmd.h"
#include "media/commands/UnlinkCmd.h"
#include "media/edges/FadeOutFunc.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/VisualMixer.h"

#include <random>
#include <string>
#include <vector>

namespace KelMediaLib {
namespace testSupport {
namespace {

using mediatest::RecordingDecorator;

typedef TimelineFixture EditingTest;

TEST_F(EditingTest, RemovingAMediaTakesItsLinksAlongAndUndoPutsAllBack) {
  const auto picture = add(video, clip(0, 100), 10);
  const auto voice = add(audio, sound(0, 100), 10);
  const auto caption = add(images, image(50), 30);
  run(LinkCmd::create(picture, voice));
  run(LinkCmd::create(picture, caption));
  const std::string before = snapshot();

  const auto removal = RemoveMediaCmd::create(video, picture);
  run(removal);
  EXPECT_TRUE(project->timeline()->allMedias().empty());
  ASSERT_EQ(3u, removal->removed().size());
  EXPECT_EQ(picture, removal->removed()[0].media);
  EXPECT_EQ(30, removal->removed()[2].time);
  project->undo();
  EXPECT_EQ(before, snapshot());

  run(RemoveMediaCmd::create(video, picture, 10));
  EXPECT_EQ(2u, project->timeline()->allMedias().size());
  EXPECT_FALSE(picture->parent());
  EXPECT_EQ(audio, voice->parent());
}

TEST_F(EditingTest, SplitClonesThroughTheDecoratorAndUndoRestoresTheOriginal) {
  const auto media = add(video, clip(100, 300), 500);
  animate(media);
  media->scale(0.5);  // 150 long on the track, showing 300 of the source
  std::vector<RecordingDecorator::Call> calls;
  media->setCloneDecorator(new RecordingDecorator(calls));
  const std::string before = snapshot();

  const auto split = SplitMediaCmd::create(video, media, 560);
  run(split);
  const boost::shared_ptr<const Media> second = split->secondPart();
  ASSERT_EQ(1u, calls.size());
  EXPECT_EQ(media.get(), calls[0].source);
  EXPECT_EQ(second.get(), calls[0].clone);
  EXPECT_EQ(Range<long long>(500, 60), media->range());
  EXPECT_EQ(Range<long long>(100, 120), media->mediaTimeRange());
  EXPECT_EQ(Range<long long>(560, 90), second->range());
  EXPECT_EQ(Range<long long>(220, 180), second->mediaTimeRange());
  const auto opacity =
      boost::dynamic_pointer_cast<const Parameter<double>>(second->parameterNamed("opacity"));
  ASSERT_TRUE(opacity);
  EXPECT_EQ(media->opacity()->keyFrameTimes(), opacity->keyFrameTimes());
  EXPECT_NE(media->opacity()->keyFrame(200), opacity->keyFrame(200));
  const std::string after = snapshot();

  project->undo();
  EXPECT_EQ(before, snapshot());
  EXPECT_FALSE(second->parent());
  project->redo();
  EXPECT_EQ(after, snapshot());
  EXPECT_EQ(second, video->medias().back());
  EXPECT_EQ(1u, calls.size());
}

// Random edits, some refused, then everything undone and redone: the model
// comes back to the start and to the end exactly, at any speed and with
// several links per media.
TEST_F(EditingTest, ARandomEditSessionUndoesAndRedoesExactly) {
  std::mt19937 random(20240611);
  auto pick = [&random](int n) { return std::uniform_int_distribution<int>(0, n - 1)(random); };
  auto between = [&random](long long low, long long high) {
    return std::uniform_int_distribution<long long>(low, high)(random);
  };
  const std::string initial = snapshot();
  const unsigned int base = project->commandHistory().position();
  int refused = 0;
  for (int step = 0; step < 300; ++step) {
    const std::vector<boost::shared_ptr<const Media>> medias = project->timeline()->allMedias();
    std::vector<boost::shared_ptr<const Track>> tracks = project->visualMixer()->tracks();
    tracks.push_back(audio);
    boost::shared_ptr<Command> command;
    const boost::shared_ptr<const Media> media =
        medias.empty() ? nullptr
                       : medias[static_cast<std::size_t>(pick(static_cast<int>(medias.size())))];
    const boost::shared_ptr<const Track> track = media ? media->parent() : nullptr;
    switch (medias.size() < 4 ? 0 : pick(14)) {
      case 0: {
        const long long start = between(0, 100000);
        switch (pick(3)) {
          case 0:
            command = AddMediaCmd::create(video, clip(between(0, 5000), between(1, 2000)), start);
            break;
          case 1:
            command = AddMediaCmd::create(images, image(between(1, 500)), start);
            break;
          default:
            command = AddMediaCmd::create(audio, sound(between(0, 5000), between(1, 2000)), start);
        }
        break;
      }
      case 1:
        command = RemoveMediaCmd::create(track, media);
        break;
      case 2:
        command = MoveMediaCmd::create(track, media, between(-3000, 3000));
        break;
      case 3:
        command = TrimStartCmd::create(track, media, between(-300, 300));
        break;
      case 4:
        command = TrimEndCmd::create(track, media, between(-300, 300));
        break;
      case 5:
        command = StretchCmd::create(track, media,
                                     std::uniform_real_distribution<double>(0.1, 4.0)(random));
        break;
      case 6:
        command = SplitMediaCmd::create(
            track, media, media->range().start + between(-10, media->range().duration + 10));
        break;
      case 7: {
        const auto other = medias[static_cast<std::size_t>(pick(static_cast<int>(medias.size())))];
        if (media->links().size() < 3 || pick(2) == 0) {
          command = LinkCmd::create(media, other);
        } else {
          command =
              UnlinkCmd::create(media, media->links()[static_cast<std::size_t>(pick(3))].lock());
        }
        break;
      }
      case 8:
        command = AddEffectCmd::create(media, GenericEffect::create("Blur", weak()));
        break;
      case 9:
        if (media->numEffects() > 0) {
          command = RemoveEffectCmd::create(media, media->effectAt(0));
        }
        break;
      case 10:
        command = NewVisualTrackCmd::create(pick(4) - 1);
        break;
      case 11: {
        const auto victim = tracks[static_cast<std::size_t>(pick(static_cast<int>(tracks.size())))];
        command = victim == video || victim == audio || victim == images
                      ? boost::shared_ptr<Command>(
                            SwapTracksCmd::create(project->visualMixer(), video, video2))
                      : boost::shared_ptr<Command>(RemoveTrackCmd::create(victim));
        break;
      }
      case 12:
        command = MoveLeftEdgeModCmd::create(media, between(-20, 40));
        break;
      default:
        command = AddRightEdgeModCmd::create(media, EdgeModification(nullptr, FadeOutFunc()));
    }
    if (!command) {
      continue;
    }
    const std::string before = snapshot();
    try {
      project->execute(command);
    } catch (const KelMediaLibException&) {
      ++refused;
      ASSERT_EQ(before, snapshot()) << "step " << step;
    }
    if (step % 25 == 0 && media) {
      EXPECT_THROW(project->execute(AddMediaCmd::create(video2, media, 0)), KelMediaLibException);
    }
  }
  EXPECT_GT(refused, 10);
  const std::string final = snapshot();
  const CommandHistoryState end = project->commandState();
  while (project->commandHistory().position() > base) {
    project->undo();
  }
  EXPECT_EQ(initial, snapshot());
  project->restoreCommandState(end);
  EXPECT_EQ(final, snapshot());
}

// An application's session: a two-track timeline with a screen recording,
// its sound, an image, a text box and a callout, edited through commands.
TEST_F(EditingTest, AnEditingSessionThroughCommandsUndoesToNothingAndRedoesToTheEnd) {
  const std::string empty = snapshot();
  const CommandHistoryState start = project->commandState();

  const auto recording = add(video, clip(0, 3000), 0);
  const auto voice = add(audio, sound(0, 3000), 0);
  run(LinkCmd::create(recording, voice));
  const auto logo = add(images, image(300), 100);
  const auto title = add(images, TextBox::create("Welcome", 150, 400, 80, weak()), 0);
  const auto hint = add(images, Callout::create(0, 200, weak(), source, 0), 900);
  run(SplitMediaCmd::create(video, recording, 1200));
  const auto tail = boost::const_pointer_cast<Media>(video->medias().back());
  run(TrimStartCmd::create(video, tail, 300));
  run(MoveMediaCmd::create(video, tail, -300));
  run(StretchCmd::create(video, tail, 0.5));
  run(AddEffectCmd::create(recording, GenericEffect::create("CursorHighlight", weak())));
  run(AddLeftEdgeModCmd::create(title, EdgeModification(title->opacity(), FadeInFunc())));
  run(MoveLeftEdgeModCmd::create(title, 30));
  run(AddRightEdgeModCmd::create(hint, EdgeModification(hint->opacity(), FadeOutFunc())));
  run(MoveRightEdgeModCmd::create(hint, 45));
  run(TrimEndCmd::create(images, logo, 100));
  run(MoveMediaCmd::create(images, logo, 200));

  EXPECT_EQ(Range<long long>(0, 1200), recording->range());
  EXPECT_EQ(Range<long long>(1200, 750), tail->range());
  EXPECT_EQ(Range<long long>(1500, 1500), tail->mediaTimeRange());
  EXPECT_EQ(3, project->visualMixer()->numTracks());
  std::vector<boost::shared_ptr<const Media>> expectedImages = {title, logo, hint};
  EXPECT_EQ(expectedImages, images->medias());
  EXPECT_EQ(30, title->leftEdgeLength());
  EXPECT_EQ(45, hint->rightEdgeLength());
  EXPECT_EQ(1, recording->numEffects());
  EXPECT_EQ(6u, project->timeline()->allMedias().size());

  const std::string edited = snapshot();
  project->restoreCommandState(start);
  EXPECT_EQ(empty, snapshot());
  while (project->commandHistory().canRedo()) {
    project->redo();
  }
  EXPECT_EQ(edited, snapshot());
}

}  // namespace
}  // namespace testSupport
}  // namespace KelMediaLib
