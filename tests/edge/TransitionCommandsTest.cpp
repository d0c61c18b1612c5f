#include "edge/EdgeTestSupport.h"

#include "actions/OrvException.h"
#include "commands/AddLeftTransitionCmd.h"
#include "commands/AddRightTransitionCmd.h"
#include "commands/RemoveDraggedLeftEdgeTransitionCmd.h"
#include "commands/RemoveDraggedRightEdgeTransitionCmd.h"
#include "commands/RemoveSelectedLeftEdgeTransitionCmd.h"
#include "commands/RemoveSelectedRightEdgeTransitionCmd.h"
#include "edge/ReadyTransitions.h"
#include "media/edges/FadeInFunc.h"
#include "media/edges/RotateFunc.h"
#include "media/media/AMFile.h"

#include <boost/make_shared.hpp>

#include <functional>

using namespace OrvMediaLib;
using edgetest::edgesOf;
using KelMediaLib::Command;
using KelMediaLib::Media;

namespace {

typedef boost::shared_ptr<const Media> MediaPtr;
typedef TransitionDescription::ModifierDescription ModifierDescription;

// The commands of one side, so that each rule is checked on both edges.
struct Side {
  const char* name;
  std::function<boost::shared_ptr<Command>(MediaPtr, const TransitionDescription&, long long)> add;
  std::function<boost::shared_ptr<Command>(MediaPtr)> removeSelected;
  std::function<boost::shared_ptr<Command>(MediaPtr, const TransitionDescription&)> removeDragged;
  // The edges text with `side` on this side and nothing on the other.
  std::function<std::string(const std::string&)> edges;
  const char* fade;
  const char* slide;
  bool left;
};

const Side kSides[] = {
    {"left", AddLeftTransitionCmd::create, RemoveSelectedLeftEdgeTransitionCmd::create,
     RemoveDraggedLeftEdgeTransitionCmd::create,
     [](const std::string& side) { return "L" + side + " R0[]"; }, "opacity:FadeInFunc",
     "translation0:MixerXSlideIn", true},
    {"right", AddRightTransitionCmd::create, RemoveSelectedRightEdgeTransitionCmd::create,
     RemoveDraggedRightEdgeTransitionCmd::create,
     [](const std::string& side) { return "L0[] R" + side; }, "opacity:FadeOutFunc",
     "translation0:MixerXSlideOut", false},
};

TransitionDescription fadeAndSlide() {
  TransitionDescription description = ReadyTransitions::transitionNamed("Fade");
  description.addModifier(*ReadyTransitions::transitionNamed("Horizontal Slide").begin());
  return description;
}

using TransitionCommandsTest = edgetest::EdgeFixture;

TEST_F(TransitionCommandsTest, AddAndRemoveUndoAndRedoInOrder) {
  for (const Side& side : kSides) {
    SCOPED_TRACE(side.name);
    SetUp();
    const std::string fade = side.fade, slide = side.slide;
    const auto modsOf = [&] {
      return side.left ? clip->leftEdgeModifications() : clip->rightEdgeModifications();
    };
    const std::string states[] = {
        side.edges("0[]"),
        side.edges("30[" + fade + "," + slide + "]"),
        side.edges("30[" + fade + "," + slide + "," + fade + "]"),
        side.edges("0[]"),
    };
    run(side.add(clip, fadeAndSlide(), 30));
    EXPECT_EQ(states[1], edgesOf(*clip));
    const auto added = modsOf();
    // The edge keeps its length and its first transition beside the second.
    run(side.add(clip, ReadyTransitions::transitionNamed("Fade"), 90));
    EXPECT_EQ(states[2], edgesOf(*clip));
    run(side.removeSelected(clip));
    EXPECT_EQ(states[3], edgesOf(*clip));
    for (int i = 2; i >= 0; --i) {
      project->undo();
      EXPECT_EQ(states[i], edgesOf(*clip)) << "undo to " << i;
    }
    for (int i = 1; i <= 3; ++i) {
      project->redo();
      EXPECT_EQ(states[i], edgesOf(*clip)) << "redo to " << i;
      if (i == 1) {
        EXPECT_EQ(added, modsOf()) << "redo puts the same modifications back";
      }
    }
  }
}

TEST_F(TransitionCommandsTest, AnEdgeWithALengthKeepsIt) {
  struct Case {
    long long before, given, after;
    bool withModifier;
  } const cases[] = {{0, 50, 50, true}, {100, 50, 100, true}, {0, 50, 50, false}, {7, 0, 7, false}};
  for (const Side& side : kSides) {
    for (const Case& c : cases) {
      SCOPED_TRACE(std::string(side.name) + " from " + std::to_string(c.before));
      SetUp();
      clip->setLeftEdgeLength(c.before);
      clip->setRightEdgeLength(c.before);
      run(side.add(
          clip,
          c.withModifier ? ReadyTransitions::transitionNamed("Rotate") : TransitionDescription(),
          c.given));
      const long long other = c.before;
      EXPECT_EQ(side.left ? c.after : other, clip->leftEdgeLength());
      EXPECT_EQ(side.left ? other : c.after, clip->rightEdgeLength());
      project->undo();
      EXPECT_EQ(c.before, clip->leftEdgeLength());
      EXPECT_EQ(c.before, clip->rightEdgeLength());
    }
  }
}

TEST_F(TransitionCommandsTest, DraggedRemovalTakesOnlyWhatItsDescriptionNames) {
  for (const Side& side : kSides) {
    SCOPED_TRACE(side.name);
    SetUp();
    run(side.add(clip, fadeAndSlide(), 40));
    const std::string added = edgesOf(*clip);
    run(side.removeDragged(clip, ReadyTransitions::transitionNamed("Horizontal Slide")));
    EXPECT_EQ(side.edges(std::string("0[") + side.fade + "]"), edgesOf(*clip));
    project->undo();
    EXPECT_EQ(added, edgesOf(*clip));
  }
}

TEST_F(TransitionCommandsTest, UnknownParameterNamesGiveModificationsWithoutAParameter) {
  TransitionDescription unknown;
  unknown.addModifier(ModifierDescription("noSuchParameter", KelMediaLib::FadeInFunc(),
                                          KelMediaLib::RotateFunc(2)));
  run(AddLeftTransitionCmd::create(clip, unknown, 10));
  run(AddRightTransitionCmd::create(clip, unknown, 20));
  EXPECT_EQ("L10[-:FadeInFunc] R20[-:Rotate]", edgesOf(*clip));
  run(RemoveDraggedLeftEdgeTransitionCmd::create(clip, unknown));
  EXPECT_EQ("L0[] R20[-:Rotate]", edgesOf(*clip));

  // An audio media has no opacity: a fade lands on it without a parameter.
  const auto sound = KelMediaLib::AMFile::create(
      KelMediaLib::Range<long long>(0, 300),
      boost::weak_ptr<const KelMediaLib::ThreadSafe>(project), mediatest::makeSource(), 1, {0, 1});
  run(AddRightTransitionCmd::create(sound, ReadyTransitions::transitionNamed("Fade"), 5));
  EXPECT_EQ("L0[] R5[-:FadeOutFunc]", edgesOf(*sound));
  run(RemoveDraggedRightEdgeTransitionCmd::create(sound,
                                                  ReadyTransitions::transitionNamed("Fade")));
  EXPECT_EQ("L0[] R0[]", edgesOf(*sound));
}

// A command that replaces what the left edge has instead of adding beside it.
class ReplaceLeftTransitionCmd : public AddLeftTransitionCmd {
 public:
  ReplaceLeftTransitionCmd(MediaPtr media, const TransitionDescription& description)
      : AddLeftTransitionCmd(media, description, 15) {}
  void executeCommands(KelMediaLib::CommandHandler const* handler) override {
    removedSome = removePreviousEdgeMod(media());
    AddLeftTransitionCmd::executeCommands(handler);
  }
  bool removedSome = false;
};

TEST_F(TransitionCommandsTest, RemovingThePreviousModificationsIsOfferedToSubclasses) {
  run(AddLeftTransitionCmd::create(clip, fadeAndSlide(), 30));
  const auto replace = boost::make_shared<ReplaceLeftTransitionCmd>(
      clip, ReadyTransitions::transitionNamed("Rotate"));
  run(replace);
  EXPECT_TRUE(replace->removedSome);
  EXPECT_EQ("L30[rotation2:Rotate] R0[]", edgesOf(*clip));
  project->undo();
  EXPECT_EQ("L30[opacity:FadeInFunc,translation0:MixerXSlideIn] R0[]", edgesOf(*clip));
}

TEST_F(TransitionCommandsTest, ReadyTransitionsAndBadArguments) {
  for (const std::string& name : ReadyTransitions::names()) {
    SCOPED_TRACE(name);
    const TransitionDescription description = ReadyTransitions::transitionNamed(name);
    ASSERT_FALSE(description.modifierDescriptions().empty());
    for (const ModifierDescription& modifier : description) {
      EXPECT_TRUE(modifier.parameterOf(*clip)) << modifier.parameterName();
    }
  }
  EXPECT_EQ(4u, ReadyTransitions::names().size());
  EXPECT_THROW(ReadyTransitions::transitionNamed("fade"), OrvException);

  const TransitionDescription fade = ReadyTransitions::transitionNamed("Fade");
  const std::function<boost::shared_ptr<Command>(MediaPtr)> commands[] = {
      [&](MediaPtr m) { return AddLeftTransitionCmd::create(m, fade, 1); },
      [&](MediaPtr m) { return AddRightTransitionCmd::create(m, fade, 1); },
      [&](MediaPtr m) { return RemoveDraggedLeftEdgeTransitionCmd::create(m, fade); },
      [&](MediaPtr m) { return RemoveDraggedRightEdgeTransitionCmd::create(m, fade); },
      RemoveSelectedLeftEdgeTransitionCmd::create,
      RemoveSelectedRightEdgeTransitionCmd::create,
  };
  for (const auto& command : commands) {
    EXPECT_THROW(command(MediaPtr()), OrvException);
  }
  EXPECT_THROW(AddLeftTransitionCmd::create(clip, fade, -1), OrvException);
}

}  // namespace
