#include "media/commands/TimelineFixture.h"

#include "media/commands/MoveMediaCmd.h"
#include "media/commands/RemoveLeftEdgeModCmd.h"
#include "media/commands/RemoveTrackCmd.h"
#include "media/project/CommandObserver.h"

#include <gtest/gtest.h>

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

// Undo and redo walk the entries; a new command drops the undone ones, and
// one that fails or does nothing isn't recorded.
TEST_F(HistoryTest, UndoAndRedoWalkTheEntriesThatCommandsLeave) {
  const unsigned int base = project->commandHistory().numCommands();
  moveBy(10);
  moveBy(20);
  EXPECT_THROW(moveBy(-31), KelMediaLibException);
  EXPECT_FALSE(project->execute(RemoveLeftEdgeModCmd::create(media, media->opacity())));
  EXPECT_EQ(base + 2, project->commandHistory().numCommands());
  project->undo();
  EXPECT_EQ(10, start());
  project->undo();
  EXPECT_EQ(0, start());
  project->redo();
  moveBy(5);
  EXPECT_EQ(base + 2, project->commandHistory().numCommands());
  EXPECT_FALSE(project->commandHistory().canRedo());
  EXPECT_EQ(15, start());
  EXPECT_THROW(project->redo(), KelMediaLibException);
  while (project->commandHistory().canUndo()) {
    project->undo();
  }
  EXPECT_THROW(project->undo(), KelMediaLibException);
  EXPECT_EQ(0, project->timeline()->allMedias().size());
}

TEST_F(HistoryTest, CombinedEntriesUndoAndRedoAsOne) {
  moveBy(10);
  const unsigned int entries = project->commandHistory().numCommands();
  moveBy(20);
  moveBy(30);
  project->combineLastCommands();
  // The next recorded command joins the entry; a failing one isn't recorded.
  project->combineNextCommand();
  EXPECT_THROW(moveBy(-100), KelMediaLibException);
  moveBy(40);
  moveBy(5);
  EXPECT_EQ(entries + 2, project->commandHistory().numCommands());
  project->undo();
  EXPECT_EQ(100, start());
  project->undo();
  EXPECT_EQ(10, start());
  project->redo();
  EXPECT_EQ(100, start());

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

}  // namespace
}  // namespace testSupport
}  // namespace KelMediaLib
