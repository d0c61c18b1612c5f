#include "media/commands/TimelineFixture.h"

#include "core/MultiCommand.h"
#include "media/commands/MoveMediaCmd.h"
#include "media/commands/RemoveLeftEdgeModCmd.h"
#include "media/commands/RemoveTrackCmd.h"
#include "media/commands/TrimEndCmd.h"
#include "media/project/CommandObserver.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

namespace KelMediaLib {
namespace testSupport {
namespace {

class RecordingObserver : public CommandObserver {
 public:
  void commandExecuted(const boost::shared_ptr<const Command>& command) override {
    calls.emplace_back("execute", command.get());
  }
  void commandUndone(const boost::shared_ptr<const Command>& command) override {
    calls.emplace_back("undo", command.get());
  }
  void commandRedone(const boost::shared_ptr<const Command>& command) override {
    calls.emplace_back("redo", command.get());
  }
  std::vector<std::pair<std::string, const Command*>> calls;
};

// A clip on the video track that the tests move about.
class HistoryTest : public TimelineFixture {
 public:
  void SetUp() override {
    TimelineFixture::SetUp();
    media = add(video, clip(0, 100), 0);
  }

  boost::shared_ptr<Command> moveBy(long long delta) {
    const boost::shared_ptr<Command> command = MoveMediaCmd::create(video, media, delta);
    project->execute(command);
    return command;
  }

  long long start() const { return media->range().start; }

  boost::shared_ptr<VMFile> media;
};

TEST_F(HistoryTest, UndoAndRedoWalkTheEntriesAndRefuseAtTheEnds) {
  const unsigned int base = project->commandHistory().numCommands();
  moveBy(10);
  moveBy(20);
  EXPECT_EQ(base + 2, project->commandHistory().position());
  project->undo();
  EXPECT_EQ(10, start());
  project->undo();
  EXPECT_EQ(0, start());
  project->redo();
  project->redo();
  EXPECT_EQ(30, start());
  EXPECT_THROW(project->redo(), KelMediaLibException);
  while (project->commandHistory().canUndo()) {
    project->undo();
  }
  EXPECT_THROW(project->undo(), KelMediaLibException);
  EXPECT_EQ(0, project->timeline()->allMedias().size());
}

TEST_F(HistoryTest, ANewCommandAfterUndoDropsTheUndoneEntries) {
  moveBy(10);
  moveBy(20);
  project->undo();
  const unsigned int entries = project->commandHistory().numCommands();
  moveBy(5);
  EXPECT_EQ(entries, project->commandHistory().numCommands());
  EXPECT_FALSE(project->commandHistory().canRedo());
  EXPECT_EQ(15, start());
}

TEST_F(HistoryTest, AFailingCommandIsNotRecordedAndTheHistoryStaysUsable) {
  moveBy(10);
  const unsigned int entries = project->commandHistory().numCommands();
  EXPECT_THROW(moveBy(-11), KelMediaLibException);
  EXPECT_EQ(entries, project->commandHistory().numCommands());
  project->undo();
  EXPECT_EQ(0, start());
  project->redo();
  EXPECT_EQ(10, start());
}

TEST_F(HistoryTest, ACommandThatDidNothingIsNotRecorded) {
  const unsigned int entries = project->commandHistory().numCommands();
  EXPECT_FALSE(project->execute(RemoveLeftEdgeModCmd::create(media, media->opacity())));
  EXPECT_EQ(entries, project->commandHistory().numCommands());
}

TEST_F(HistoryTest, CombinedEntriesUndoAndRedoAsOne) {
  moveBy(10);
  const unsigned int entries = project->commandHistory().numCommands();
  moveBy(20);
  moveBy(30);
  project->combineLastCommands();
  moveBy(40);
  project->combineLastCommands();
  EXPECT_EQ(entries + 1, project->commandHistory().numCommands());
  project->undo();
  EXPECT_EQ(10, start());
  project->redo();
  EXPECT_EQ(100, start());
}

TEST_F(HistoryTest, CombineNextJoinsTheNextRecordedCommandOnly) {
  moveBy(10);
  const unsigned int entries = project->commandHistory().numCommands();
  project->combineNextCommand();
  EXPECT_THROW(moveBy(-100), KelMediaLibException);  // not recorded, so it joins nothing
  moveBy(20);
  moveBy(30);
  EXPECT_EQ(entries + 1, project->commandHistory().numCommands());
  project->undo();
  EXPECT_EQ(30, start());
  project->undo();
  EXPECT_EQ(0, start());
}

TEST_F(HistoryTest, CombiningNeedsEntriesToCombine) {
  const boost::shared_ptr<InternalProject> empty = InternalProject::create(EditRate(25, 1));
  EXPECT_THROW(empty->combineNextCommand(), KelMediaLibException);
  EXPECT_THROW(empty->combineLastCommands(), KelMediaLibException);
}

TEST_F(HistoryTest, AStateTokenLeadsBackToItsPositionBothWays) {
  moveBy(10);
  const CommandHistoryState saved = project->commandState();
  const std::string savedModel = snapshot();
  moveBy(20);
  moveBy(30);
  const CommandHistoryState later = project->commandState();
  const std::string laterModel = snapshot();
  project->restoreCommandState(saved);
  EXPECT_EQ(savedModel, snapshot());
  EXPECT_TRUE(project->commandState() == saved);
  project->restoreCommandState(later);
  EXPECT_EQ(laterModel, snapshot());
  // Combining the entries after the token keeps it valid.
  project->combineLastCommands();
  project->restoreCommandState(saved);
  EXPECT_EQ(savedModel, snapshot());
}

TEST_F(HistoryTest, AStateTokenGoesStaleWhenTheHistoryBranchesPastIt) {
  moveBy(10);
  moveBy(20);
  const CommandHistoryState saved = project->commandState();
  project->undo();
  moveBy(5);
  const std::string model = snapshot();
  EXPECT_THROW(project->restoreCommandState(saved), KelMediaLibException);
  EXPECT_EQ(model, snapshot());

  const boost::shared_ptr<InternalProject> other = InternalProject::create(EditRate(30, 1));
  EXPECT_THROW(project->restoreCommandState(other->commandState()), KelMediaLibException);
  EXPECT_THROW(project->restoreCommandState(CommandHistoryState()), KelMediaLibException);
}

TEST_F(HistoryTest, ObserversHearOfEachTopLevelCommandOnce) {
  RecordingObserver observer;
  project->attachCommandObserver(&observer);
  project->attachCommandObserver(&observer);
  const boost::shared_ptr<Command> move = moveBy(10);
  const boost::shared_ptr<Command> group = RemoveTrackCmd::create(video);
  project->execute(group);
  project->undo();
  project->redo();
  EXPECT_THROW(moveBy(-1000), KelMediaLibException);
  project->detachCommandObserver(&observer);
  project->undo();
  const std::vector<std::pair<std::string, const Command*>> expected = {{"execute", move.get()},
                                                                        {"execute", group.get()},
                                                                        {"undo", group.get()},
                                                                        {"redo", group.get()}};
  EXPECT_EQ(expected, observer.calls);
}

class MockHandler : public CommandHandler {
 public:
  MOCK_METHOD(boost::shared_ptr<const VisualMixer>, visualMixer, (), (const, override));
  MOCK_METHOD(boost::shared_ptr<const AudioMixer>, audioMixer, (), (const, override));
  MOCK_METHOD(boost::shared_ptr<const VisualMixer>, newVisualMixer, (float, float), (override));
  MOCK_METHOD(void, newVisualMixer, (boost::shared_ptr<VisualMixer>), (override));
  MOCK_METHOD(boost::shared_ptr<VisualMixer>, removeVisualMixer, (), (override));
  MOCK_METHOD(boost::shared_ptr<const AudioMixer>, newAudioMixer,
              (unsigned int, unsigned int, unsigned int), (override));
  MOCK_METHOD(void, newAudioMixer, (boost::shared_ptr<AudioMixer>), (override));
  MOCK_METHOD(boost::shared_ptr<AudioMixer>, removeAudioMixer, (), (override));
  MOCK_METHOD(boost::shared_ptr<const VisualTrack>, newVisualTrack, (int), (override));
  MOCK_METHOD(boost::shared_ptr<const VisualTrack>, newImageTrack, (int), (override));
  MOCK_METHOD(boost::shared_ptr<const AudioTrack>, newAudioTrack, (int), (override));
  MOCK_METHOD(boost::shared_ptr<const Track>, newTrack, (boost::shared_ptr<const Mixer>, int),
              (override));
  MOCK_METHOD(void, addTrack, (boost::shared_ptr<const Mixer>, boost::shared_ptr<Track>, int),
              (override));
  MOCK_METHOD(int, removeTrack, (boost::shared_ptr<const Mixer>, boost::shared_ptr<const Track>),
              (override));
  MOCK_METHOD(void, swapTrackOrder,
              (boost::shared_ptr<const Mixer>, boost::shared_ptr<const Track>,
               boost::shared_ptr<const Track>),
              (override));
  MOCK_METHOD(void, addMedia,
              (boost::shared_ptr<const Track>, boost::shared_ptr<const Media>, long long),
              (override));
  MOCK_METHOD(MediaPlacements, removeMedia,
              (boost::shared_ptr<const Track>, boost::shared_ptr<const Media>), (override));
  MOCK_METHOD(void, removeMedia,
              (boost::shared_ptr<const Track>, boost::shared_ptr<const Media>, long long),
              (override));
  MOCK_METHOD(void, move,
              (boost::shared_ptr<const Track>, boost::shared_ptr<const Media>, long long),
              (override));
  MOCK_METHOD(void, trimStart,
              (boost::shared_ptr<const Track>, boost::shared_ptr<const Media>, long long),
              (override));
  MOCK_METHOD(void, trimEnd,
              (boost::shared_ptr<const Track>, boost::shared_ptr<const Media>, long long),
              (override));
  MOCK_METHOD(double, stretch,
              (boost::shared_ptr<const Track>, boost::shared_ptr<const Media>, double), (override));
  MOCK_METHOD(void, addLink, (boost::shared_ptr<const Media>, boost::shared_ptr<const Media>),
              (override));
  MOCK_METHOD(void, addLink,
              (boost::shared_ptr<const Media>, boost::shared_ptr<const Media>, int, int),
              (override));
  MOCK_METHOD(void, removeLink, (boost::shared_ptr<const Media>, boost::shared_ptr<const Media>),
              (override));
  MOCK_METHOD(void, addEffect,
              (boost::shared_ptr<const Effectable>, boost::shared_ptr<const Effect>), (override));
  MOCK_METHOD(void, insertEffect,
              (boost::shared_ptr<const Effectable>, boost::shared_ptr<const Effect>, int),
              (override));
  MOCK_METHOD(void, swapEffectOrder, (boost::shared_ptr<const Effectable>, int, int), (override));
  MOCK_METHOD(int, removeEffect,
              (boost::shared_ptr<const Effectable>, boost::shared_ptr<const Effect>), (override));
  MOCK_METHOD(void, moveParameterKeyFrame,
              (boost::shared_ptr<const Parametric>, boost::shared_ptr<const ParameterInterface>,
               long long, long long),
              (override));
  MOCK_METHOD(boost::shared_ptr<const Source>, loadSource, (const std::string&), (override));
  MOCK_METHOD(void, loadSource, (boost::shared_ptr<const Source>), (override));
  MOCK_METHOD(void, unloadSource, (boost::shared_ptr<const Source>), (override));
  MOCK_METHOD(void, addClipping, (boost::shared_ptr<Clipping>), (override));
  MOCK_METHOD(void, removeClipping, (boost::shared_ptr<Clipping>), (override));
  MOCK_METHOD(EdgeModCommandHandler*, edgeModCommandHandler, (), (override));
};

TEST_F(HistoryTest, CommandsRunWithTheInstalledHandlerForExecuteUndoAndRedo) {
  ::testing::StrictMock<MockHandler> handler;
  const boost::shared_ptr<const Track> track = video;
  const boost::shared_ptr<const Media> clip = media;
  {
    ::testing::InSequence order;
    EXPECT_CALL(handler, trimEnd(track, clip, 7));
    EXPECT_CALL(handler, trimEnd(track, clip, -7));
    EXPECT_CALL(handler, trimEnd(track, clip, 7));
  }
  project->setCommandHandler(&handler);
  EXPECT_EQ(&handler, project->commandHandler());
  project->execute(TrimEndCmd::create(video, media, 7));
  project->undo();
  project->redo();
  project->setCommandHandler(nullptr);
  EXPECT_EQ(project.get(), project->commandHandler());
  EXPECT_EQ(100, media->range().duration);
}

}  // namespace
}  // namespace testSupport
}  // namespace KelMediaLib
