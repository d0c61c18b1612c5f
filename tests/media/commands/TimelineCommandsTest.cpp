#include "media/commands/TimelineFixture.h"

#include "media/commands/AddRightEdgeModCmd.h"
#include "media/commands/InsertEffectCmd.h"
#include "media/commands/LoadSourceCmd.h"
#include "media/commands/MoveLeftEdgeModCmd.h"
#include "media/commands/MoveMediaCmd.h"
#include "media/commands/MoveParameterKeyFrameCmd.h"
#include "media/commands/MoveRightEdgeModCmd.h"
#include "media/commands/RemoveEffectCmd.h"
#include "media/commands/RemoveLeftEdgeModCmd.h"
#include "media/commands/RemoveMediaCmd.h"
#include "media/commands/RemoveRightEdgeModCmd.h"
#include "media/commands/RemoveTrackCmd.h"
#include "media/commands/SplitMediaCmd.h"
#include "media/commands/StretchCmd.h"
#include "media/commands/SwapEffectsCmd.h"
#include "media/commands/SwapTracksCmd.h"
#include "media/commands/TrimEndCmd.h"
#include "media/commands/TrimStartCmd.h"
#include "media/commands/UnlinkCmd.h"
#include "media/commands/UnloadSourceCmd.h"
#include "media/edges/FadeOutFunc.h"
#include "media/project/SourceBin.h"
#include "media/timeline/VisualMixer.h"

#include <boost/pointer_cast.hpp>

#include <functional>
#include <string>
#include <vector>

namespace KelMediaLib {
namespace testSupport {
namespace {

// The timeline every case starts from: an animated clip with two effects,
// edge modifications on both sides, linked to a sound and then to an image;
// a second clip.
class CommandTest : public TimelineFixture {
 public:
  void SetUp() override {
    TimelineFixture::SetUp();
    first = add(video, clip(100, 300), 500);
    animate(first);
    run(AddEffectCmd::create(first, GenericEffect::create("Blur", weak())));
    run(AddEffectCmd::create(first, GenericEffect::create("DropShadow", weak())));
    run(AddLeftEdgeModCmd::create(first, EdgeModification(first->opacity(), FadeInFunc())));
    run(MoveLeftEdgeModCmd::create(first, 20));
    run(AddRightEdgeModCmd::create(first, EdgeModification(first->opacity(), FadeOutFunc())));
    second = add(video, clip(1000, 200), 1000);
    picture = add(images, image(90), 40);
    voice = add(audio, sound(100, 300), 500);
    run(LinkCmd::create(first, voice));
    run(LinkCmd::create(picture, first));
  }

  boost::shared_ptr<VMFile> first;
  boost::shared_ptr<VMFile> second;
  boost::shared_ptr<IMFile> picture;
  boost::shared_ptr<AMFile> voice;
  // Another project that a case refers to.
  boost::shared_ptr<Project> keepAlive;

  boost::shared_ptr<const Track> strangerTrack() {
    const auto other = InternalProject::create(EditRate(30, 1));
    keepAlive = other;
    other->newVisualMixer(640, 480);
    return other->newVisualTrack(-1);
  }
  boost::shared_ptr<TextBox> strangerBox() {
    const auto other = InternalProject::create(EditRate(30, 1));
    keepAlive = other;
    return TextBox::create("t", 10, 10.0f, 10.0f, boost::weak_ptr<const ThreadSafe>(other));
  }
};

typedef std::function<boost::shared_ptr<Command>(CommandTest&)> MakeCommand;

struct Case {
  const char* name;
  MakeCommand make;
};

std::string stillPicture() {
  return ORV_TEST_DATA_DIR "/still.png";
}

// A still loaded for a case, with no media showing it.
boost::shared_ptr<const Source> unusedSource(CommandTest& t) {
  const auto load = LoadSourceCmd::create(stillPicture());
  t.project->execute(load);
  return load->source();
}

// A named case whose command the expression makes from the test `t`.
// clang-format off
#define CASE(name, ...) \
  Case{#name, [](CommandTest& t [[maybe_unused]]) -> boost::shared_ptr<Command> { \
    return __VA_ARGS__; }}
// clang-format on

const std::vector<Case>& commandCases() {
  static const std::vector<Case> cases = {
      CASE(AddMedia,
           AddMediaCmd::create(t.images, TextBox::create("hello", 60, 200, 50, t.weak()), 300)),
      CASE(RemoveMediaWithLinks, RemoveMediaCmd::create(t.video, t.first)),
      CASE(RemoveOneMedia, RemoveMediaCmd::create(t.video, t.first, 500)),
      CASE(MoveLater, MoveMediaCmd::create(t.video, t.first, 900)),
      CASE(MoveEarlier, MoveMediaCmd::create(t.video, t.second, -700)),
      CASE(TrimStart, TrimStartCmd::create(t.video, t.first, 30)),
      CASE(ExtendStart, TrimStartCmd::create(t.video, t.first, -80)),
      CASE(TrimEnd, TrimEndCmd::create(t.video, t.first, 50)),
      CASE(ExtendEnd, TrimEndCmd::create(t.video, t.first, -40)),
      CASE(StretchSlower, StretchCmd::create(t.video, t.second, 2.0)),
      CASE(StretchFaster, StretchCmd::create(t.video, t.second, 0.5)),
      CASE(Split, SplitMediaCmd::create(t.video, t.first, 620)),
      CASE(Link, LinkCmd::create(t.second, t.picture)),
      CASE(Unlink, UnlinkCmd::create(t.voice, t.first)),
      CASE(AddEffect,
           AddEffectCmd::create(t.second, GenericEffect::create("ColorAdjust", t.weak()))),
      CASE(InsertEffect,
           InsertEffectCmd::create(t.first, GenericEffect::create("ColorAdjust", t.weak()), 1)),
      CASE(RemoveEffect, RemoveEffectCmd::create(t.first, t.first->effectAt(0))),
      CASE(SwapEffects, SwapEffectsCmd::create(t.first, 0, 1)),
      CASE(NewVisualMixer, NewVisualMixerCmd::create(1280, 720)),
      CASE(NewAudioMixer, NewAudioMixerCmd::create(48000, 24, 6)),
      CASE(NewVisualTrack, NewVisualTrackCmd::create(0)),
      CASE(NewImageTrack, NewImageTrackCmd::create(1)),
      CASE(NewAudioTrack, NewAudioTrackCmd::create(-1)),
      CASE(RemoveTrackWithMedia, RemoveTrackCmd::create(t.video)),
      CASE(SwapTracks, SwapTracksCmd::create(t.project->visualMixer(), t.video, t.images)),
      CASE(MoveKeyFrame, MoveParameterKeyFrameCmd::create(t.first, t.first->opacity(), 200, 230)),
      CASE(LoadSource, LoadSourceCmd::create(stillPicture())),
      CASE(UnloadUnusedSource, UnloadSourceCmd::create(unusedSource(t))),
      CASE(AddLeftEdgeMod, AddLeftEdgeModCmd::create(
                               t.second, EdgeModification(t.second->opacity(), FadeInFunc()))),
      CASE(AddRightEdgeMod,
           AddRightEdgeModCmd::create(t.first, EdgeModification(nullptr, FadeOutFunc()))),
      CASE(LengthenLeftEdge, MoveLeftEdgeModCmd::create(t.first, 15)),
      CASE(ShortenLeftEdge, MoveLeftEdgeModCmd::create(t.first, -20)),
      CASE(LengthenRightEdge, MoveRightEdgeModCmd::create(t.first, 25)),
      CASE(RemoveLeftEdgeMods, RemoveLeftEdgeModCmd::create(t.first, t.first->opacity())),
      CASE(RemoveRightEdgeMods, RemoveRightEdgeModCmd::create(t.first, t.first->opacity())),
  };
  return cases;
}

class EveryCommand : public CommandTest, public ::testing::WithParamInterface<Case> {};

// Each command (made first: a case may prepare the model) changes the model;
// undo gives back exactly the model from before, redo exactly the model from
// after, as often as it is asked.
TEST_P(EveryCommand, UndoAndRedoRestoreTheModelExactly) {
  const boost::shared_ptr<Command> command = GetParam().make(*this);
  const std::string before = snapshot();
  const unsigned int entries = project->commandHistory().numCommands();
  ASSERT_TRUE(project->execute(command));
  const std::string after = snapshot();
  EXPECT_NE(before, after);
  EXPECT_EQ(entries + 1, project->commandHistory().numCommands());
  for (int round = 0; round < 2; ++round) {
    project->undo();
    EXPECT_EQ(before, snapshot());
    project->redo();
    EXPECT_EQ(after, snapshot());
  }
}

INSTANTIATE_TEST_SUITE_P(Commands, EveryCommand, ::testing::ValuesIn(commandCases()),
                         [](const ::testing::TestParamInfo<Case>& info) {
                           return std::string(info.param.name);
                         });

const std::vector<Case>& misuseCases() {
  static const std::vector<Case> cases = {
      CASE(MediaAddedTwice, AddMediaCmd::create(t.video2, t.first, 0)),
      CASE(RemovedFromAnotherTrack, RemoveMediaCmd::create(t.video2, t.first)),
      CASE(RemovedAtAWrongTime, RemoveMediaCmd::create(t.video, t.first, 501)),
      CASE(TrackOfAnotherProject, AddMediaCmd::create(t.strangerTrack(), t.clip(0, 10), 0)),
      CASE(MediaOfAnotherProject, AddMediaCmd::create(t.video2, t.strangerBox(), 0)),
      {"KeyFrameOfAnotherProject",
       [](CommandTest& t) {
         const auto box = t.strangerBox();
         box->opacity()->addKeyFrame(5, 0.5);
         return MoveParameterKeyFrameCmd::create(box, box->opacity(), 5, 6);
       }},
      CASE(WrongKindOfTrack, AddMediaCmd::create(t.audio, t.clip(0, 10), 0)),
      CASE(NegativeTime, AddMediaCmd::create(t.video2, t.clip(0, 10), -1)),
      CASE(MoveBeforeZero, MoveMediaCmd::create(t.video, t.first, -501)),
      CASE(ExtendStartBeyondSource, TrimStartCmd::create(t.video, t.first, -101)),
      CASE(TrimStartBeyondMedia, TrimStartCmd::create(t.video, t.first, 301)),
      CASE(TrimEndBeyondMedia, TrimEndCmd::create(t.video, t.first, 301)),
      CASE(ExtendEndBeyondSource, TrimEndCmd::create(t.video, t.first, -9601)),
      CASE(StretchToZero, StretchCmd::create(t.video, t.first, 0.0)),
      CASE(SplitAtTheStart, SplitMediaCmd::create(t.video, t.first, 500)),
      CASE(SplitOnAnotherTrack, SplitMediaCmd::create(t.video2, t.first, 600)),
      CASE(LinkedTwice, LinkCmd::create(t.voice, t.first)),
      CASE(LinkedToItself, LinkCmd::create(t.first, t.first)),
      CASE(UnlinkNotLinked, UnlinkCmd::create(t.first, t.second)),
      CASE(EffectHeldAlready, AddEffectCmd::create(t.second, t.first->effectAt(0))),
      CASE(RemoveEffectNotThere, RemoveEffectCmd::create(t.second, t.first->effectAt(0))),
      CASE(SwapEffectOutOfRange, SwapEffectsCmd::create(t.first, 0, 2)),
      CASE(KeyFrameOntoAnother, MoveParameterKeyFrameCmd::create(t.first, t.first->opacity(), 200, 250)),
      CASE(KeyFrameOfAnotherMedia, MoveParameterKeyFrameCmd::create(t.second, t.first->opacity(), 200, 210)),
      CASE(NegativeMixerSize, NewVisualMixerCmd::create(-1, 480)),
      CASE(TrackIndexBelowMinusOne, NewVisualTrackCmd::create(-2)),
      CASE(SwapWithTrackOfOtherMixer, SwapTracksCmd::create(t.project->visualMixer(), t.video, t.audio)),
      CASE(EdgeShorterThanNothing, MoveLeftEdgeModCmd::create(t.first, -21)),
      CASE(LoadMissingFile, LoadSourceCmd::create("/no/such/file.mov")),
      CASE(UnloadSourceInUse, UnloadSourceCmd::create(t.source)),
      {"UnloadTwice",
       [](CommandTest& t) {
         const auto source = unusedSource(t);
         t.project->execute(UnloadSourceCmd::create(source));
         return UnloadSourceCmd::create(source);
       }},
  };
  return cases;
}

class EveryMisuse : public CommandTest, public ::testing::WithParamInterface<Case> {};

// A refused command throws, isn't recorded and leaves the model as it was.
TEST_P(EveryMisuse, ThrowsAndChangesNothing) {
  const boost::shared_ptr<Command> command = GetParam().make(*this);
  const std::string before = snapshot();
  const unsigned int entries = project->commandHistory().numCommands();
  EXPECT_THROW(project->execute(command), KelMediaLibException);
  EXPECT_EQ(before, snapshot());
  EXPECT_EQ(entries, project->commandHistory().numCommands());
}

INSTANTIATE_TEST_SUITE_P(Commands, EveryMisuse, ::testing::ValuesIn(misuseCases()),
                         [](const ::testing::TestParamInfo<Case>& info) {
                           return std::string(info.param.name);
                         });

}  // namespace
}  // namespace testSupport
}  // namespace KelMediaLib
