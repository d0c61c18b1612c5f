#include "edge/EdgeTestSupport.h"

#include "actions/OrvException.h"
#include "commands/AddLeftTransitionCmd.h"
#include "commands/AddRightTransitionCmd.h"
#include "edge/EdgeTransitionBin.h"
#include "edge/LeftEdgeTransition.h"
#include "edge/ReadyTransitions.h"
#include "edge/RightEdgeTransition.h"
#include "media/commands/RemoveLeftEdgeModCmd.h"
#include "media/media/VMFile.h"

#include <boost/make_shared.hpp>

#include <string>

using namespace OrvMediaLib;
using edgetest::edgesOf;

namespace {

using EdgeTransitionBinTest = edgetest::EdgeFixture;

TEST_F(EdgeTransitionBinTest, FollowsTheEdgesOfItsMedia) {
  const auto bin = EdgeTransitionBin::create();
  mediatest::CountingObserver binObserver;
  bin->attach(&binObserver);
  const std::size_t observersBefore = clip->numObservers();
  bin->createEdgeTransitionsForMedia(clip);
  EXPECT_FALSE(bin->leftEdgeTransitionForMedia(clip));
  EXPECT_FALSE(bin->rightEdgeTransitionForMedia(clip));
  EXPECT_EQ(observersBefore + 1, clip->numObservers());

  run(AddLeftTransitionCmd::create(clip, ReadyTransitions::transitionNamed("Fade"), 30));
  const auto left = bin->leftEdgeTransitionForMedia(clip);
  ASSERT_TRUE(left);
  EXPECT_EQ(clip, left->media());
  EXPECT_FALSE(bin->rightEdgeTransitionForMedia(clip));

  // A second modification on the edge: still the same transition.
  run(AddLeftTransitionCmd::create(clip, ReadyTransitions::transitionNamed("Rotate"), 30));
  EXPECT_EQ(left, bin->leftEdgeTransitionForMedia(clip));
  run(AddRightTransitionCmd::create(clip, ReadyTransitions::transitionNamed("Vertical Slide"), 9));
  const auto right = bin->rightEdgeTransitionForMedia(clip);
  ASSERT_TRUE(right);
  EXPECT_EQ(left, bin->leftEdgeTransitionForMedia(clip));

  // The left side goes with its last modification; the right side stays.
  run(KelMediaLib::RemoveLeftEdgeModCmd::create(clip, clip->opacity()));
  EXPECT_EQ(left, bin->leftEdgeTransitionForMedia(clip));
  run(KelMediaLib::RemoveLeftEdgeModCmd::create(clip,
                                                clip->leftEdgeModifications()[0]->parameter()));
  EXPECT_FALSE(bin->leftEdgeTransitionForMedia(clip));
  EXPECT_EQ(right, bin->rightEdgeTransitionForMedia(clip));
  project->undo();
  EXPECT_TRUE(bin->leftEdgeTransitionForMedia(clip));
  // Created, left appears, right appears, left goes, left back: five changes.
  EXPECT_EQ(5, binObserver.count);

  // A media the bin never saw has nothing; a media it learns of by update
  // starts with what its edges hold.
  const auto other = KelMediaLib::VMFile::create(
      KelMediaLib::Range<long long>(0, 10), boost::weak_ptr<const KelMediaLib::ThreadSafe>(project),
      mediatest::makeSource(), 0);
  EXPECT_FALSE(bin->leftEdgeTransitionForMedia(other));
  EXPECT_FALSE(bin->rightEdgeTransitionForMedia(boost::shared_ptr<const KelMediaLib::Media>()));
  run(AddRightTransitionCmd::create(other, ReadyTransitions::transitionNamed("Fade"), 3));
  bin->updateEdgeTransitionsForMedia(other);
  EXPECT_FALSE(bin->leftEdgeTransitionForMedia(other));
  EXPECT_TRUE(bin->rightEdgeTransitionForMedia(other));

  bin->detach(&binObserver);
}

TEST_F(EdgeTransitionBinTest, AddedTransitionsAndBadArguments) {
  auto bin = EdgeTransitionBin::create();
  const auto left = boost::make_shared<LeftEdgeTransition>(clip);
  bin->addLeftEdgeTransition(clip, left);
  EXPECT_EQ(left, bin->leftEdgeTransitionForMedia(clip));
  EXPECT_FALSE(bin->rightEdgeTransitionForMedia(clip));
  const auto other = KelMediaLib::VMFile::create(
      KelMediaLib::Range<long long>(0, 10), boost::weak_ptr<const KelMediaLib::ThreadSafe>(project),
      mediatest::makeSource(), 0);
  EXPECT_THROW(bin->addRightEdgeTransition(other, boost::make_shared<RightEdgeTransition>(clip)),
               OrvException);
  EXPECT_THROW(bin->createEdgeTransitionsForMedia(boost::shared_ptr<const KelMediaLib::Media>()),
               OrvException);
  EXPECT_THROW(LeftEdgeTransition(boost::shared_ptr<const KelMediaLib::Media>()), OrvException);
  EXPECT_FALSE(bin->rightEdgeTransitionForMedia(other));

  // The bin's end leaves no observer behind on its media.
  const std::size_t observers = clip->numObservers();
  bin->addRightEdgeTransition(other, boost::make_shared<RightEdgeTransition>(other));
  EXPECT_EQ(1u, other->numObservers());
  bin.reset();
  EXPECT_EQ(observers - 1, clip->numObservers());
  EXPECT_EQ(0u, other->numObservers());
  // Media changes after the bin's end reach no dead observer.
  run(AddLeftTransitionCmd::create(clip, ReadyTransitions::transitionNamed("Fade"), 3));
}

TEST_F(EdgeTransitionBinTest, AFadeAddedByCommandIsRemovedThroughItsTransition) {
  const auto bin = EdgeTransitionBin::create();
  bin->createEdgeTransitionsForMedia(clip);
  run(AddLeftTransitionCmd::create(clip, ReadyTransitions::transitionNamed("Fade"), 45));
  run(AddRightTransitionCmd::create(clip, ReadyTransitions::transitionNamed("Fade"), 20));
  const std::string faded = edgesOf(*clip);
  ASSERT_EQ("L45[opacity:FadeInFunc] R20[opacity:FadeOutFunc]", faded);

  const auto left = bin->leftEdgeTransitionForMedia(clip);
  ASSERT_TRUE(left);
  testing::internal::CaptureStdout();
  run(left->removeCmd());
  EXPECT_EQ("", testing::internal::GetCapturedStdout());
  EXPECT_EQ("L0[] R20[opacity:FadeOutFunc]", edgesOf(*clip));
  EXPECT_FALSE(bin->leftEdgeTransitionForMedia(clip));

  testing::internal::CaptureStdout();
  run(bin->rightEdgeTransitionForMedia(clip)->removeCmd());
  EXPECT_EQ("creating RemoveSelectedRightEdgeTransitionCmd\n",
            testing::internal::GetCapturedStdout());
  EXPECT_EQ("L0[] R0[]", edgesOf(*clip));
  EXPECT_FALSE(bin->rightEdgeTransitionForMedia(clip));

  project->undo();
  project->undo();
  EXPECT_EQ(faded, edgesOf(*clip));
  EXPECT_TRUE(bin->leftEdgeTransitionForMedia(clip));
  EXPECT_TRUE(bin->rightEdgeTransitionForMedia(clip));
}

}  // namespace
