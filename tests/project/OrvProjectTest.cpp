#include "project/OrvProject.h"

#include "commands/OrvCommandImpl.h"
#include "media/project/CommandHistory.h"
#include "project/ProjectTestSupport.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

namespace {

using namespace projecttest;

TEST(OrvProjectTest, CreateNormalisesTheRateAndPassesTheRationalsFailureOn) {
  const auto project = OrvProject::create(30, 2);
  EXPECT_EQ(15u, project->editRate().numerator());
  EXPECT_EQ(1u, project->editRate().denominator());
  EXPECT_EQ("bad rational: zero denominator", failure([] { OrvProject::create(25, 0); }));
}

TEST(OrvProjectTest, TheSecondFormWrapsOnlyAnInnerProject) {
  const auto inner = Project::create(EditRate(25, 1));
  EXPECT_EQ(&inner->mutex(), &InternalOrvProject::create(inner)->mutex());
  EXPECT_THROW(InternalOrvProject::create(boost::shared_ptr<Project>()), OrvException);
}

struct ProbeCmd : OrvCommandImpl {
  bool fails = false;
  std::vector<std::string> calls;
  void execute(CommandHandler*) override {
    calls.push_back("execute");
    if (fails) {
      throw std::runtime_error("probe failed");
    }
  }
  void unexecute(CommandHandler*) override { calls.push_back("unexecute"); }
  void reexecute(CommandHandler*) override { calls.push_back("reexecute"); }
};

TEST_F(ProjectFixture, OrvExecuteMakesOneHistoryEntryAndPassesFailuresOn) {
  const unsigned int before = project->commandHistory().numCommands();
  const auto command = boost::make_shared<ProbeCmd>();
  EXPECT_TRUE(project->orvExecute(command));
  EXPECT_EQ(static_cast<OrvCommandHandler*>(project.get()), command->orvCommandHandler());
  EXPECT_EQ(before + 1, project->commandHistory().numCommands());
  project->undo();
  project->redo();
  EXPECT_EQ((std::vector<std::string>{"execute", "unexecute", "reexecute"}), command->calls);

  const auto failing = boost::make_shared<ProbeCmd>();
  failing->fails = true;
  EXPECT_EQ("probe failed", failure([&] { project->orvExecute(failing); }));
  EXPECT_EQ(static_cast<OrvCommandHandler*>(project.get()), failing->orvCommandHandler());
  EXPECT_EQ(before + 1, project->commandHistory().numCommands());
}

TEST_F(ProjectFixture, XmlWritesTheInnerProjectThenTheThreeNamedBins) {
  added(media, 100, 200);
  added(media, 300, 400, project->zdActionBin());
  std::ostringstream out;
  XMLable::Options options(out);
  project->toXML(options, 0, "");
  // The inner project, then the bins in order, each with its action; no others.
  const auto bin = [](const boost::shared_ptr<const ActionBin>&, const char* name) {
    return "\" name=\"" + std::string(name) + "\">";
  };
  const std::string xml = out.str(), marks[] = {"<OrvProject version=\"1.0\">\n  <Project ",
                                                "\n  </Project>\n  <ActionBin id=\"",
                                                bin(project->actionBin(), "actionBin"),
                                                "timeRange=\"(100,100)\"",
                                                bin(project->zdActionBin(), "zdActionBin"),
                                                "timeRange=\"(300,100)\"",
                                                bin(project->audioActionBin(), "audioActionBin") +
                                                    "\n  </ActionBin>\n</OrvProject>\n"};
  std::size_t at = 0;
  for (const std::string& mark : marks) {
    at = xml.find(mark, at);
    ASSERT_NE(std::string::npos, at) << mark << " in " << xml;
  }
  EXPECT_EQ(xml.size(), at + marks[6].size());
}

}  // namespace
