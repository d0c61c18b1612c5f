#include "core/Command.h"
#include "core/CommandHandler.h"
#include "core/KelMediaLibException.h"
#include "core/MultiCommand.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

using KelMediaLib::Command;
using KelMediaLib::CommandHandler;
using KelMediaLib::KelMediaLibException;
using KelMediaLib::MultiCommand;

namespace {

// The model the commands edit: a list of numbers and a log of the calls.
struct Model {
  std::vector<int> values;
  std::vector<std::string> log;
};

// Appends a number; undo takes it off again. Each step may be told to fail
// before it touches the model. It also notes the handlers it was given.
class PushCmd : public Command {
 public:
  PushCmd(Model& model, int value) : model_(model), value_(value) {}

  bool execute(CommandHandler* handler) override {
    return step(handler, "do", failExecute, [this] { model_.values.push_back(value_); });
  }
  bool unexecute(CommandHandler* handler) override {
    return step(handler, "undo", failUndo, [this] { model_.values.pop_back(); });
  }
  bool reexecute(CommandHandler* handler) override {
    return step(handler, "redo", failRedo, [this] { model_.values.push_back(value_); });
  }
  Command* clone() const override { return new PushCmd(*this); }
  void xmlName(Options& options) const override { options.out << "Push"; }
  void xmlAttributes(Options& options) const override {
    options.out << "value=\"" << value_ << '"';
  }

  bool failExecute = false;
  bool failUndo = false;
  bool failRedo = false;
  bool refuse = false;  // execute does nothing and says so
  std::vector<CommandHandler*> handlers;

 protected:
  bool xmlHasAttributes() const override { return true; }

 private:
  bool step(CommandHandler* handler, const std::string& what, bool fail,
            const std::function<void()>& change) {
    handlers.push_back(handler);
    if (fail) {
      throw std::runtime_error(what + " " + std::to_string(value_) + " failed");
    }
    if (what == "do" && refuse) {
      return false;
    }
    change();
    model_.log.push_back(what + " " + std::to_string(value_));
    return true;
  }

  Model& model_;
  int value_;
};

boost::shared_ptr<PushCmd> push(Model& model, int value) {
  return boost::make_shared<PushCmd>(model, value);
}

// A group whose logic is a script given by the test.
class ScriptedGroup : public MultiCommand {
 public:
  typedef std::function<void(ScriptedGroup&)> Script;
  explicit ScriptedGroup(Script script) : script_(std::move(script)) {}

  void executeCommands(CommandHandler const* handler) override {
    ++runs;
    logicHandler = handler;
    script_(*this);
  }
  Command* clone() const override { return new ScriptedGroup(*this); }

  int runs = 0;
  CommandHandler const* logicHandler = nullptr;

 private:
  Script script_;
};

class MultiCommandTest : public ::testing::Test {
 protected:
  // Never dereferenced: the tests only check that this very pointer is passed on.
  CommandHandler* const handler = reinterpret_cast<CommandHandler*>(&model);
  Model model;
  typedef std::vector<int> Values;
  typedef std::vector<std::string> Log;

  // A group that runs the given members in order.
  boost::shared_ptr<ScriptedGroup> groupOf(const std::vector<boost::shared_ptr<PushCmd>>& members) {
    return boost::make_shared<ScriptedGroup>([members](ScriptedGroup& group) {
      for (const auto& member : members) {
        group.execute(member);
      }
    });
  }
};

TEST_F(MultiCommandTest, GroupUndoesBackwardAndRedoesForwardWithoutItsLogic) {
  const auto a = push(model, 1), b = push(model, 2), c = push(model, 3);
  const auto group = groupOf({a, b, c});
  EXPECT_TRUE(group->execute(handler));
  EXPECT_EQ(handler, group->logicHandler);
  EXPECT_EQ((Values{1, 2, 3}), model.values);
  EXPECT_EQ(3u, group->numUndoCommands());

  for (int cycle = 0; cycle < 2; ++cycle) {
    model.log.clear();
    EXPECT_TRUE(group->unexecute(handler));
    EXPECT_EQ(Values{}, model.values);
    EXPECT_TRUE(group->reexecute(handler));
    EXPECT_EQ((Values{1, 2, 3}), model.values);
    EXPECT_EQ((Log{"undo 3", "undo 2", "undo 1", "redo 1", "redo 2", "redo 3"}), model.log);
  }
  EXPECT_EQ(1, group->runs);
  for (const auto& member : {a, b, c}) {
    EXPECT_EQ(std::vector<CommandHandler*>(5, handler), member->handlers);
  }
}

TEST_F(MultiCommandTest, GroupRunsWithoutAHandlerAndWithoutMembers) {
  const auto member = push(model, 1);
  const auto group = groupOf({member});
  EXPECT_TRUE(group->execute(nullptr));
  EXPECT_TRUE(group->unexecute(nullptr));
  EXPECT_EQ((Log{"do 1", "undo 1"}), model.log);
  EXPECT_EQ(std::vector<CommandHandler*>(2, nullptr), member->handlers);

  const auto empty = groupOf({});
  EXPECT_TRUE(empty->execute(handler) && empty->unexecute(handler) && empty->reexecute(handler));
  EXPECT_EQ(0u, empty->numUndoCommands());
}

// However the first run fails, by a member or by the group's own logic, what
// ran is undone in reverse and the group's exception reaches the caller.
TEST_F(MultiCommandTest, FailedFirstRunUndoesWhatRanAndRecordsNothing) {
  const struct {
    const char* name;
    bool memberFails;
    const char* message;
  } cases[] = {{"member", true, "do 3 failed"}, {"logic", false, "logic failed"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    model = Model();
    const auto failing = push(model, 3);
    failing->failExecute = c.memberFails;
    const bool memberFails = c.memberFails;
    ScriptedGroup group([&](ScriptedGroup& g) {
      g.execute(push(model, 1));
      g.execute(push(model, 2));
      if (memberFails) {
        g.execute(failing);
      } else {
        throw std::runtime_error("logic failed");
      }
    });
    try {
      group.execute(handler);
      ADD_FAILURE() << "no exception";
    } catch (const std::runtime_error& e) {
      EXPECT_STREQ(c.message, e.what());
    }
    EXPECT_EQ(Values{}, model.values);
    EXPECT_EQ((Log{"do 1", "do 2", "undo 2", "undo 1"}), model.log);
    EXPECT_EQ(0u, group.numUndoCommands());
    // Nothing recorded: undo has nothing to do.
    EXPECT_TRUE(group.unexecute(handler));
    EXPECT_EQ(4u, model.log.size());
  }
}

TEST_F(MultiCommandTest, MemberFailingInUndoOrRedoLeavesTheModelAsBeforeTheCall) {
  const auto a = push(model, 1), b = push(model, 2), c = push(model, 3);
  const auto group = groupOf({a, b, c});
  group->execute(handler);

  b->failUndo = true;
  model.log.clear();
  EXPECT_THROW(group->unexecute(handler), std::runtime_error);
  EXPECT_EQ((Values{1, 2, 3}), model.values);
  EXPECT_EQ((Log{"undo 3", "redo 3"}), model.log);

  b->failUndo = false;
  group->unexecute(handler);
  b->failRedo = true;
  model.log.clear();
  EXPECT_THROW(group->reexecute(handler), std::runtime_error);
  EXPECT_EQ(Values{}, model.values);
  EXPECT_EQ((Log{"redo 1", "undo 1"}), model.log);

  // The group still works once the member does.
  b->failRedo = false;
  group->reexecute(handler);
  EXPECT_EQ((Values{1, 2, 3}), model.values);
}

// Members run only from the group's logic, and the logic runs only once.
TEST_F(MultiCommandTest, MisplacedRunsAreRefused) {
  const auto stray = push(model, 9);
  const auto group = groupOf({push(model, 1)});
  EXPECT_THROW(group->execute(boost::shared_ptr<Command>(stray)), KelMediaLibException);
  group->execute(handler);
  EXPECT_THROW(group->execute(boost::shared_ptr<Command>(stray)), KelMediaLibException);
  EXPECT_THROW(group->execute(handler), KelMediaLibException);
  EXPECT_TRUE(stray->handlers.empty());
  EXPECT_EQ(1u, group->numUndoCommands());
  EXPECT_EQ(1, group->runs);
  EXPECT_EQ((Values{1}), model.values);

  ScriptedGroup noMember([](ScriptedGroup& g) { g.execute(boost::shared_ptr<Command>()); });
  EXPECT_THROW(noMember.execute(handler), KelMediaLibException);
  ScriptedGroup reentrant([this](ScriptedGroup& g) { g.execute(handler); });
  EXPECT_THROW(reentrant.execute(handler), KelMediaLibException);
  EXPECT_EQ(1, reentrant.runs);
}

TEST_F(MultiCommandTest, MemberThatDidNothingIsNotRecorded) {
  const auto idle = push(model, 5);
  idle->refuse = true;
  bool reported = true;
  ScriptedGroup group([&](ScriptedGroup& g) {
    g.execute(push(model, 1));
    reported = g.execute(idle);
  });
  group.execute(handler);
  EXPECT_FALSE(reported);
  EXPECT_EQ(1u, group.numUndoCommands());
  group.unexecute(handler);
  group.reexecute(handler);
  EXPECT_EQ(1u, idle->handlers.size());  // only its one execute
}

TEST_F(MultiCommandTest, CopyOfAGroupHasRecordedNothingAndRunsItsLogicAfresh) {
  const auto group = groupOf({push(model, 1), push(model, 2)});
  group->execute(handler);
  boost::shared_ptr<Command> copy(group->clone());
  auto& copied = dynamic_cast<ScriptedGroup&>(*copy);
  EXPECT_EQ(0u, copied.numUndoCommands());

  model.values.clear();
  copied.execute(handler);
  EXPECT_EQ(2u, copied.numUndoCommands());
  EXPECT_EQ((Values{1, 2}), model.values);
}

// Only a group absorbs another command, and only a real one.
TEST_F(MultiCommandTest, CombineAppendsAnExecutedCommand) {
  EXPECT_THROW(push(model, 1)->combine(push(model, 2)), KelMediaLibException);
  const auto group = groupOf({push(model, 1)});
  group->execute(handler);
  const auto later = push(model, 2);
  later->execute(handler);
  EXPECT_THROW(group->combine(boost::shared_ptr<Command>()), KelMediaLibException);
  group->combine(later);
  EXPECT_EQ(2u, group->numUndoCommands());

  model.log.clear();
  group->unexecute(handler);
  group->reexecute(handler);
  EXPECT_EQ((Log{"undo 2", "undo 1", "redo 1", "redo 2"}), model.log);
}

TEST_F(MultiCommandTest, XMLListsTheMembersInOrder) {
  const auto group = groupOf({push(model, 1), push(model, 2)});
  group->execute(handler);
  std::ostringstream out;
  KelMediaLib::XMLable::Options options(out);
  group->toXML(options, 0, std::string());
  EXPECT_EQ(
      "<MultiCommand>\n"
      "  <Push value=\"1\"/>\n"
      "  <Push value=\"2\"/>\n"
      "</MultiCommand>\n",
      out.str());
}

}  // namespace
