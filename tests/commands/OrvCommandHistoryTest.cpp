#include "OrvCommandTestSupport.h"

#include "actions/OrvException.h"
#include "commands/OrvCommandHistory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace OrvMediaLib;
using namespace testing;
using orvtest::Log;
using orvtest::step;

namespace {

TEST(OrvCommandHistory, UndoesNewestFirstAndForgetsRedoOnExecute) {
  Log log;
  OrvCommandHistory history;
  history.undoAll();
  history.redoAll();
  EXPECT_THAT([&] { history.undo(); }, ThrowsMessage<OrvException>(StrEq("no commands to undo")));
  const auto handler = reinterpret_cast<KelMediaLib::CommandHandler*>(&log);
  history.setCommandHandler(handler);
  for (const char* id : {"a", "b", "c"}) history.execute(step(log, id));
  history.undoAll();
  history.redoAll();
  history.undo();
  const auto d = step(log, "d");
  history.execute(d);
  EXPECT_THAT([&] { history.redo(); }, ThrowsMessage<OrvException>(StrEq("no commands to redo")));
  EXPECT_EQ(log, (Log{"do a", "do b", "do c", "undo c", "undo b", "undo a", "redo a", "redo b",
                      "redo c", "undo c", "do d"}));
  EXPECT_EQ(d->handlers, std::vector<KelMediaLib::CommandHandler*>{handler});
}

// A command that fails to execute is never recorded and clears nothing; one
// that fails to undo or redo has left its list and is dropped.
TEST(OrvCommandHistory, FailingCommandsLeaveTheListsAsDocumented) {
  const std::pair<std::string, Log> cases[] = {
      {"do", {"undo a", "redo a"}},
      {"undo", {"do b", "undo a", "redo a"}},
      {"redo", {"do b", "undo b", "undo a", "redo a", "undo a", "redo a"}},
  };
  for (const auto& c : cases) {
    Log log;
    OrvCommandHistory history;
    history.execute(step(log, "a"));
    const auto b = step(log, "b", c.first);
    if (c.first == "do") {
      history.undo();
      EXPECT_THROW(history.execute(b), std::runtime_error);
    } else {
      history.execute(b);
      EXPECT_THROW((history.undoAll(), history.redoAll()), std::runtime_error);
    }
    history.undoAll();
    history.redoAll();
    log.erase(log.begin());
    EXPECT_EQ(log, c.second) << c.first;
  }
}

}  // namespace
