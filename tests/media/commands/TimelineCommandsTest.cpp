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
};

typedef std::function<boost::shared_ptr<Command>(CommandTest&)> MakeCommand;

struct Case {
  const char* name;
  MakeCommand make;
};

std::string stillPicture() { return ORV_TEST_DATA_DIR "/still.png"; }

const std::vector<Case>& commandCases() {
  static const std::vector<Case> cases = {
      {"AddMedia",
       [](CommandTest& t) {
         return AddMediaCmd::create(t.images, TextBox::create("hello", 60, 200, 50, t.weak()), 300);
       }},
      {"RemoveMediaWithLinks",
       [](CommandTest& t) { return RemoveMediaCmd::create(t.video, t.first); }},
      {"RemoveOneMedia",
       [](CommandTest& t) { return RemoveMediaCmd::create(t.video, t.first, 500); }},
      {"MoveLater", [](CommandTest& t) { return MoveMediaCmd::create(t.video, t.first, 900); }},
      {"MoveEarlier", [](CommandTest& t) { return MoveMediaCmd::create(t.video, t.second, -700); }},
      {"TrimStart", [](CommandTest& t) { return TrimStartCmd::create(t.video, t.first, 30); }},
      {"ExtendStart", [](CommandTest& t) { return TrimStartCmd::create(t.video, t.first, -80); }},
      {"TrimEnd", [](CommandTest& t) { return TrimEndCmd::create(t.video, t.first, 50); }},
      {"ExtendEnd", [](CommandTest& t) { return TrimEndCmd::create(t.video, t.first, -40); }},
      {"StretchSlower", [](CommandTest& t) { return StretchCmd::create(t.video, t.second, 2.0); }},
      {"StretchFaster", [](CommandTest& t) { return StretchCmd::create(t.video, t.second, 0.5); }},
      {"Split", [](CommandTest& t) { return SplitMediaCmd::create(t.video, t.first, 620); }},
      {"Link", [](CommandTest& t) { return LinkCmd::create(t.second, t.picture); }},
      {"Unlink", [](CommandTest& t) { return UnlinkCmd::create(t.voice, t.first); }},
      {"AddEffect",
       [](CommandTest& t) {
         return AddEffectCmd::create(t.second, GenericEffect::create("ColorAdjust", t.weak()));
       }},
      {"InsertEffect",
       [](CommandTest& t) {
         return InsertEffectCmd::create(t.first, GenericEffect::create("ColorAdjust", t.weak()), 1);
       }},
      {"RemoveEffect",
       [](CommandTest& t) { return RemoveEffectCmd::create(t.first, t.first->effectAt(0)); }},
      {"SwapEffects", [](CommandTest& t) { return SwapEffectsCmd::create(t.first, 0, 1); }},
      {"NewVisualMixer", [](CommandTest&) { return NewVisualMixerCmd::create(1280, 720); }},
      {"NewAudioMixer", [](CommandTest&) { return NewAudioMixerCmd::create(48000, 24, 6); }},
      {"NewVisualTrack", [](CommandTest&) { return NewVisualTrackCmd::create(0); }},
      {"NewImageTrack", [](CommandTest&) { return NewImageTrackCmd::create(1); }},
      {"NewAudioTrack", [](CommandTest&) { return NewAudioTrackCmd::create(-1); }},
      {"RemoveTrackWithMedia", [](CommandTest& t) { return RemoveTrackCmd::create(t.video); }},
      {"SwapTracks",
       [](CommandTest& t) {
         return SwapTracksCmd::create(t.project->visualMixer(), t.video, t.images);
       }},
      {"MoveKeyFrame",
       [](CommandTest& t) {
         return MoveParameterKeyFrameCmd::create(t.first, t.first->opacity(), 200, 230);
       }},
      {"LoadSource", [](CommandTest&) { return LoadSourceCmd::create(stillPicture()); }},
      {"UnloadSource", [](CommandTest& t) { return UnloadSourceCmd::create(t.source); }},
      {"AddLeftEdgeMod",
       [](CommandTest& t) {
         return AddLeftEdgeModCmd::create(t.second,
                                          EdgeModification(t.second->opacity(), FadeInFunc()));
       }},
      {"AddRightEdgeMod",
       [](CommandTest& t) {
         return AddRightEdgeModCmd::create(t.first, EdgeModification(nullptr, FadeOutFunc()));
       }},
      {"LengthenLeftEdge", [](CommandTest& t) { return MoveLeftEdgeModCmd::create(t.first, 15); }},
      {"ShortenLeftEdge", [](CommandTest& t) { return MoveLeftEdgeModCmd::create(t.first, -20); }},
      {"LengthenRightEdge",
       [](CommandTest& t) { return MoveRightEdgeModCmd::create(t.first, 25); }},
      {"RemoveLeftEdgeMods",
       [](CommandTest& t) { return RemoveLeftEdgeModCmd::create(t.first, t.first->opacity()); }},
      {"RemoveRightEdgeMods",
       [](CommandTest& t) { return RemoveRightEdgeModCmd::create(t.first, t.first->opacity()); }},
  };
  return cases;
}

class EveryCommand : public CommandTest, public ::testing::WithParamInterface<Case> {};

// Each command changes the model; undo gives back exactly the model from
// before, redo exactly the model from after, as often as it is asked.
TEST_P(EveryCommand, UndoAndRedoRestoreTheModelExactly) {
  const std::string before = snapshot();
  const unsigned int entries = project->commandHistory().numCommands();
  ASSERT_TRUE(project->execute(GetParam().make(*this)));
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
      {"MediaAddedTwice", [](CommandTest& t) { return AddMediaCmd::create(t.video2, t.first, 0); }},
      {"RemovedFromAnotherTrack",
       [](CommandTest& t) { return RemoveMediaCmd::create(t.video2, t.first); }},
      {"RemovedAtAWrongTime",
       [](CommandTest& t) { return RemoveMediaCmd::create(t.video, t.first, 501); }},
      {"TrackOfAnotherProject",
       [](CommandTest& t) {
         const boost::shared_ptr<InternalProject> other = InternalProject::create(EditRate(30, 1));
         other->newVisualMixer(640, 480);
         const boost::shared_ptr<const Track> track = other->newVisualTrack(-1);
         t.keepAlive = other;
         return AddMediaCmd::create(track, t.clip(0, 10), 0);
       }},
      {"WrongKindOfTrack",
       [](CommandTest& t) { return AddMediaCmd::create(t.audio, t.clip(0, 10), 0); }},
      {"NegativeTime",
       [](CommandTest& t) { return AddMediaCmd::create(t.video2, t.clip(0, 10), -1); }},
      {"MoveBeforeZero",
       [](CommandTest& t) { return MoveMediaCmd::create(t.video, t.first, -501); }},
      {"ExtendStartBeyondSource",
       [](CommandTest& t) { return TrimStartCmd::create(t.video, t.first, -101); }},
      {"TrimStartBeyondMedia",
       [](CommandTest& t) { return TrimStartCmd::create(t.video, t.first, 301); }},
      {"TrimEndBeyondMedia",
       [](CommandTest& t) { return TrimEndCmd::create(t.video, t.first, 301); }},
      {"ExtendEndBeyondSource",
       [](CommandTest& t) { return TrimEndCmd::create(t.video, t.first, -9601); }},
      {"StretchToZero", [](CommandTest& t) { return StretchCmd::create(t.video, t.first, 0.0); }},
      {"SplitAtTheStart",
       [](CommandTest& t) { return SplitMediaCmd::create(t.video, t.first, 500); }},
      {"SplitOnAnotherTrack",
       [](CommandTest& t) { return SplitMediaCmd::create(t.video2, t.first, 600); }},
      {"LinkedTwice", [](CommandTest& t) { return LinkCmd::create(t.voice, t.first); }},
      {"LinkedToItself", [](CommandTest& t) { return LinkCmd::create(t.first, t.first); }},
      {"UnlinkNotLinked", [](CommandTest& t) { return UnlinkCmd::create(t.first, t.second); }},
      {"EffectHeldAlready",
       [](CommandTest& t) { return AddEffectCmd::create(t.second, t.first->effectAt(0)); }},
      {"RemoveEffectNotThere",
       [](CommandTest& t) { return RemoveEffectCmd::create(t.second, t.first->effectAt(0)); }},
      {"SwapEffectOutOfRange",
       [](CommandTest& t) { return SwapEffectsCmd::create(t.first, 0, 2); }},
      {"KeyFrameOntoAnother",
       [](CommandTest& t) {
         return MoveParameterKeyFrameCmd::create(t.first, t.first->opacity(), 200, 250);
       }},
      {"KeyFrameOfAnotherMedia",
       [](CommandTest& t) {
         return MoveParameterKeyFrameCmd::create(t.second, t.first->opacity(), 200, 210);
       }},
      {"NegativeMixerSize", [](CommandTest&) { return NewVisualMixerCmd::create(-1, 480); }},
      {"TrackIndexBelowMinusOne", [](CommandTest&) { return NewVisualTrackCmd::create(-2); }},
      {"SwapWithTrackOfOtherMixer",
       [](CommandTest& t) {
         return SwapTracksCmd::create(t.project->visualMixer(), t.video, t.audio);
       }},
      {"EdgeShorterThanNothing",
       [](CommandTest& t) { return MoveLeftEdgeModCmd::create(t.first, -21); }},
      {"LoadMissingFile", [](CommandTest&) { return LoadSourceCmd::create("/no/such/file.mov"); }},
      {"UnloadTwice",
       [](CommandTest& t) {
         t.project->execute(UnloadSourceCmd::create(t.source));
         return UnloadSourceCmd::create(t.source);
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
