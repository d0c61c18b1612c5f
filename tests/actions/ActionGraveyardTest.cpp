#include "actions/ActionBin.h"
#include "actions/ActionGraveyard.h"
#include "media/effects/GenericEffect.h"

#include "actions/ActionTestSupport.h"

#include <gtest/gtest.h>

namespace {

using namespace actiontest;
using namespace KelMediaLib;
using namespace OrvMediaLib;

TEST(ActionGraveyardTest, KeepsOneEntryPerMediaAndClonesZombiesUntilOneFails) {
  Model model;
  ActionGraveyard graveyard;
  const auto bin = ActionBin::create();
  const auto source = model.media();
  const auto other = model.media();
  source->insertEffect(GenericEffect::create("Blur", model.lock), -1);
  const auto first = makeAction(source, "opacity", 100, 200);
  const auto second = makeAction(source->effectAt(0), "radius", 100, 200);
  graveyard.addAction(bin, source, first);
  graveyard.addAction(bin, other, first);
  graveyard.addAction(bin, source, second);
  EXPECT_TRUE(graveyard.mediasZombies(model.media()).empty());
  EXPECT_EQ(2u, graveyard.numMedias());
  EXPECT_EQ((ActionGraveyard::ZombieList{{bin, first}, {bin, second}}),
            graveyard.mediasZombies(source));

  const boost::shared_ptr<Media> clone = source->cloneMedia();
  clone->removeEffect(0);
  EXPECT_EQ("unable to find cloned actions parameter",
            failure([&] { graveyard.cloneMediasZombies(source.get(), clone); }));
  ASSERT_EQ(1u, graveyard.mediasZombies(clone).size());
  EXPECT_EQ(parameterOf(*clone, "opacity"),
            graveyard.mediasZombies(clone).front().second->parameterRanges()->front()->parameter());
  EXPECT_EQ(2u, graveyard.mediasZombies(source).size());

  graveyard.remove(other);
  graveyard.remove(model.media());
  EXPECT_EQ(2u, graveyard.numMedias());
  EXPECT_EQ(2u, graveyard.mediasZombies(source).size());
}

// The zombie's ranges lie on `owner`; its entry is made under `gone`, which
// then ends, so that only a null media reaches it.
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
  graveyard.cloneMediasZombies(owner.get(), clone);
  EXPECT_EQ(3u, graveyard.numMedias());
  EXPECT_EQ(2u, graveyard.mediasZombies(clone).size());
  EXPECT_EQ(2u, graveyard.mediasZombies(boost::shared_ptr<const Media>()).size());
}

}  // namespace
