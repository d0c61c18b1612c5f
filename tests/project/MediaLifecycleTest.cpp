#include "project/InternalOrvProject.h"

#include "core/CloneDecorator.h"
#include "media/commands/LinkCmd.h"
#include "media/commands/RemoveMediaCmd.h"
#include "media/commands/SplitMediaCmd.h"
#include "project/ProjectTestSupport.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace projecttest;

TEST_F(ProjectFixture, RemovedMediaLeaveTheirActionsInTheGraveyardUntilUndoAndKeepTheirHandler) {
  const auto main = added(media, 100, 200);
  const auto zoom = added(media, 300, 400, project->zdActionBin());
  run(RemoveMediaCmd::create(track, media));
  EXPECT_EQ(0u, project->actionBin()->numActions());
  EXPECT_EQ(0u, project->zdActionBin()->numActions());
  EXPECT_EQ((Times{100, 200, 300, 400}), timesOf(*media));

  CloneDecorator<Media>* const handler = media->cloneDecorator();
  project->undo();
  EXPECT_TRUE(handler && handler == media->cloneDecorator());
  EXPECT_EQ(project->actionBin(), project->actionBinForAction(main));
  EXPECT_EQ(project->zdActionBin(), project->actionBinForAction(zoom));
  EXPECT_EQ((Times{100, 200, 300, 400}), timesOf(*media));

  // An action in the graveyard loses its key frames before the refusal.
  project->redo();
  EXPECT_EQ("action doesn't exist inside any action bins",
            failure([&] { project->removeAction(main); }));
  EXPECT_EQ((Times{300, 400}), timesOf(*media));
}

// Removal without a time takes the linked media along, actions included;
// with a time, only the one media goes.
TEST_F(ProjectFixture, LinkedMediaLoseTheirActionsOnlyWithTheWholeRemoval) {
  for (const bool withTime : {false, true}) {
    SCOPED_TRACE(withTime);
    const auto first = addBox(2000);
    const auto second = addBox(4000);
    run(LinkCmd::create(first, second));
    const auto firstsAction = added(first, 100, 200);
    const auto secondsAction = added(second, 100, 200);
    run(withTime ? RemoveMediaCmd::create(track, first, 2000)
                 : RemoveMediaCmd::create(track, first));
    EXPECT_FALSE(project->actionBinForAction(firstsAction));
    EXPECT_EQ(withTime, !!project->actionBinForAction(secondsAction));
    project->undo();
    EXPECT_TRUE(project->actionBinForAction(firstsAction));
    EXPECT_TRUE(project->actionBinForAction(secondsAction));
  }
}

TEST_F(ProjectFixture, EachCloneOfACloneHasItsOwnActionsOnceOnATrack) {
  added(media, 100, 200);
  const auto clone = media->cloneMedia();
  EXPECT_EQ(1u, project->actionBin()->numActions());
  run(AddMediaCmd::create(track, clone, 2000));
  const auto cloneOfClone = clone->cloneMedia();
  run(AddMediaCmd::create(track, cloneOfClone, 4000));
  EXPECT_EQ(3u, project->actionBin()->numActions());
  const std::vector<boost::shared_ptr<const Media>> all{media, clone, cloneOfClone};
  for (const auto& each : all) {
    const auto actions = project->actionBin()->mediasActions(each);
    ASSERT_EQ(1u, actions->size());
    EXPECT_EQ(R(100, 100), actions->front()->timeRange());
    EXPECT_EQ(parameterOf(*each, "opacity"),
              actions->front()->parameterRanges()->front()->parameter());
  }
}

TEST_F(ProjectFixture, ASplitGivesBothPartsTheActionsAndItsUndoTakesTheCopyAway) {
  const auto action = added(media, 100, 200);
  const auto split = SplitMediaCmd::create(track, media, 500);
  run(split);
  const auto second = split->secondPart();
  const auto seconds = project->actionBin()->mediasActions(second);
  ASSERT_EQ(1u, seconds->size());
  const auto copy = seconds->front();
  EXPECT_NE(action, copy);
  EXPECT_EQ((Times{100, 200}), timesOf(*second));

  project->undo();
  EXPECT_EQ(1u, project->actionBin()->numActions());
  EXPECT_EQ(project->actionBin(), project->actionBinForAction(action));
  project->redo();
  EXPECT_EQ(copy, project->actionBin()->mediasActions(second)->front());
  EXPECT_EQ(2u, project->actionBin()->numActions());
}

// Also while the application still holds the bins: the graveyard went with
// the project, and the handler must not reach it.
TEST_F(ProjectFixture, AMediaThatOutlivesItsProjectClonesWithoutAHandler) {
  ASSERT_TRUE(media->hasCloneDecorator());
  added(media, 100, 200);
  const std::vector<boost::shared_ptr<const ActionBin>> held = {
      project->actionBin(), project->zdActionBin(), project->audioActionBin()};
  project.reset();
  const auto clone = media->cloneMedia();
  EXPECT_FALSE(clone->hasCloneDecorator());
}

}  // namespace
