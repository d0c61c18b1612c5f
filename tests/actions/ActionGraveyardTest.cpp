#include "actions/ActionBin.h"
#include "actions/ActionGraveyard.h"
#include "actions/OrvException.h"
#include "media/effects/GenericEffect.h"

#include "actions/ActionTestSupport.h"

#include <gtest/gtest.h>

namespace {

using namespace actiontest;
using KelMediaLib::Media;
using KelMediaLib::Range;
using OrvMediaLib::ActionBin;
using OrvMediaLib::ActionGraveyard;
using OrvMediaLib::CenterAction;

TEST(ActionGraveyardTest, KeepsOneEntryPerMediaInOrderOfArrival) {
  Model model;
  ActionGraveyard graveyard;
  const auto bin = ActionBin::create();
  const auto a = model.media();
  const auto b = model.media();
  const auto c = model.media();
  const auto first = boost::make_shared<CenterAction>(a);
  const auto second = boost::make_shared<CenterAction>(a);
  graveyard.addAction(bin, a, first);
  graveyard.addAction(bin, b, first);
  graveyard.addAction(bin, a, second);
  graveyard.addAction(bin, c, second);
  EXPECT_TRUE(graveyard.mediasZombies(model.media()).empty());
  EXPECT_EQ(3u, graveyard.numMedias());

  const ActionGraveyard::ZombieList zombies = graveyard.mediasZombies(a);
  ASSERT_EQ(2u, zombies.size());
  EXPECT_EQ(first, zombies.front().second);
  EXPECT_EQ(second, zombies.back().second);
  EXPECT_EQ(bin, zombies.front().first);

  graveyard.remove(b);
  graveyard.remove(model.media());
  EXPECT_EQ(2u, graveyard.numMedias());
  EXPECT_EQ(2u, graveyard.mediasZombies(a).size());
  EXPECT_EQ(1u, graveyard.mediasZombies(c).size());
}

// The zombies' ranges lie on `owner`; their entry is made under `gone`,
// which then ends, so only a null media reaches them.
TEST(ActionGraveyardTest, EntriesOfMediaThatWentStayAndMatchANullMedia) {
  Model model;
  ActionGraveyard graveyard;
  const auto bin = ActionBin::create();
  const auto owner = model.media();
  const auto zombie = makeAction(owner, "opacity", 100, 200);
  const boost::shared_ptr<Media> clone = owner->cloneMedia();
  const auto live = model.media();
  graveyard.addAction(bin, live, zombie);
  graveyard.cloneMediasZombies(owner.get(), clone);
  EXPECT_EQ(1u, graveyard.numMedias());

  auto gone = model.media();
  graveyard.addAction(bin, gone, zombie);
  gone.reset();
  graveyard.addAction(bin, boost::shared_ptr<const Media>(), zombie);
  EXPECT_EQ(2u, graveyard.numMedias());
  EXPECT_EQ(2u, graveyard.mediasZombies(boost::shared_ptr<const Media>()).size());

  graveyard.cloneMediasZombies(owner.get(), clone);
  EXPECT_EQ(3u, graveyard.numMedias());
  const ActionGraveyard::ZombieList clones = graveyard.mediasZombies(clone);
  ASSERT_EQ(2u, clones.size());
  EXPECT_EQ(bin, clones.front().first);
  EXPECT_EQ(parameterOf(*clone, "opacity"), clones.front().second->parameterRanges()->front()->parameter());
  EXPECT_EQ(2u, graveyard.mediasZombies(boost::shared_ptr<const Media>()).size());
}

TEST(ActionGraveyardTest, ACloneThatFailsKeepsTheZombiesClonedBeforeIt) {
  Model model;
  ActionGraveyard graveyard;
  const auto bin = ActionBin::create();
  const auto source = model.media();
  source->insertEffect(KelMediaLib::GenericEffect::create("Blur", model.lock), -1);
  graveyard.addAction(bin, source, makeAction(source, "opacity", 100, 200));
  graveyard.addAction(bin, source, makeAction(source->effectAt(0), "radius", 100, 200));
  const boost::shared_ptr<Media> clone = source->cloneMedia();
  clone->removeEffect(0);

  try {
    graveyard.cloneMediasZombies(source.get(), clone);
    ADD_FAILURE() << "no exception";
  } catch (const OrvMediaLib::OrvException& e) {
    EXPECT_STREQ("unable to find cloned actions parameter", e.what());
  }
  EXPECT_EQ(1u, graveyard.mediasZombies(clone).size());
  EXPECT_EQ(2u, graveyard.mediasZombies(source).size());
}

}  // namespace
