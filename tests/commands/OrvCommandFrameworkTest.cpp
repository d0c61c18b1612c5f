#include "OrvCommandTestSupport.h"

#include "commands/OrvCommandExecutor.h"
#include "commands/OrvMultiCommand.h"
#include "commands/UndoCmd.h"
#include "media/project/InternalProject.h"

#include <gtest/gtest.h>

#include <functional>

using namespace OrvMediaLib;
using KelMediaLib::CommandHandler;
using orvtest::Log;
using orvtest::step;

namespace {

// A group whose logic is a script given by the test.
struct ScriptGroup : OrvMultiCommand {
  explicit ScriptGroup(std::function<void(ScriptGroup&)> groupScript) : script(groupScript) {}
  void executeCommands(CommandHandler const* h) override {
    runs.push_back(h);
    script(*this);
  }
  std::function<void(ScriptGroup&)> script;
  std::vector<CommandHandler const*> runs;
};

// Handlers of action edits are handed on, never called: addresses will do.
char tags[2];
OrvCommandHandler* const top = reinterpret_cast<OrvCommandHandler*>(&tags[0]);
OrvCommandHandler* const other = reinterpret_cast<OrvCommandHandler*>(&tags[1]);

// Each group is one entry of the project's history; undo and redo replay its
// members without running its logic again.
TEST(OrvCommandFramework, GroupsReplayTheirMembersThroughTheProjectHistory) {
  Log log;
  const auto project = KelMediaLib::InternalProject::create(KelMediaLib::EditRate(25, 1));
  const auto a = step(log, "a");
  auto nested = [&](ScriptGroup& g) {
    g.orvExecute(boost::make_shared<ScriptGroup>([&](ScriptGroup& in) { in.orvExecute(a); }));
    g.orvExecute(step(log, "b"));
  };
  // A media model command joins without a handler of action edits.
  auto media = [&](ScriptGroup& g) { EXPECT_TRUE(g.execute(OrvCommandExecutor::create(a))); };
  const std::vector<std::pair<std::function<void(ScriptGroup&)>, Log>> cases = {
      {[](ScriptGroup&) {}, {}},
      {nested, {"do a", "do b", "undo b", "undo a", "redo a", "redo b"}},
      {media, {"do a", "undo a", "redo a"}}};
  for (const auto& c : cases) {
    log.clear();
    a->setOrvCommandHandler(other);
    a->handlers.clear();
    const auto group = boost::make_shared<ScriptGroup>(c.first);
    group->setOrvCommandHandler(top);
    EXPECT_TRUE(project->execute(OrvCommandExecutor::create(group)));
    EXPECT_EQ(group->numUndoCommands(), c.second.size() / 3);
    EXPECT_EQ(ScriptGroup(*group).numUndoCommands(), 0u);
    project->undo();
    project->redo();
    EXPECT_EQ(log, c.second);
    EXPECT_EQ(group->runs, std::vector<CommandHandler const*>{project.get()});
    EXPECT_EQ(a->handlers, std::vector<CommandHandler*>(c.second.empty() ? 0 : 3, project.get()));
    EXPECT_EQ(a->orvCommandHandler(), c.second.size() == 6 ? top : other);
  }
}

TEST(OrvCommandFramework, ExecutorAndUndoCmdForwardWithTheirHandlers) {
  Log log;
  const auto project = KelMediaLib::InternalProject::create(KelMediaLib::EditRate(25, 1));
  const auto leaf = step(log, "a");
  EXPECT_EQ(leaf->orvCommandHandler(), nullptr);
  leaf->setOrvCommandHandler(top);
  const auto executor = OrvCommandExecutor::create(leaf);
  EXPECT_TRUE(executor->execute(project.get()) && executor->unexecute(project.get()) &&
              executor->reexecute(project.get()));
  EXPECT_EQ(executor->description(), "");
  EXPECT_EQ(executor->clone(), nullptr);
  for (const auto& undo : {UndoCmd::orvCreate(leaf), UndoCmd::create(executor)}) {
    undo->setOrvCommandHandler(other);
    undo->execute(project.get());
    undo->unexecute(project.get());
    undo->reexecute(project.get());
    undo->unexecute(project.get());
    EXPECT_EQ(leaf->orvCommandHandler(), top);
  }
  Log expected = {"do a", "undo a", "redo a"};
  for (int i = 0; i < 4; ++i) expected.insert(expected.end(), {"undo a", "redo a"});
  EXPECT_EQ(log, expected);
  EXPECT_EQ(leaf->handlers, std::vector<CommandHandler*>(11, project.get()));
}

}  // namespace
