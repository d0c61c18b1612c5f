#include "actions/ActionBin.h"
#include "actions/ActionGraveyard.h"
#include "actions/OrvException.h"
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

// A media that has gone can't come back: its entry and actions are let go at
// the graveyard's next change. The zombie's ranges lie on `live`, so that
// nothing but the entry holds `gone`.
TEST(ActionGraveyardTest, EntriesOfMediaThatWentAreLetGo) {
  Model model;
  ActionGraveyard graveyard;
  const auto bin = ActionBin::create();
  const auto live = model.media();
  auto gone = model.media();
  boost::shared_ptr<const Action> zombie = makeAction(live, "opacity", 100, 200);
  const boost::weak_ptr<const Action> watched = zombie;
  graveyard.addAction(bin, gone, zombie);
  zombie.reset();
  gone.reset();
  EXPECT_EQ(1u, graveyard.numMedias());
  EXPECT_FALSE(watched.expired());
  graveyard.addAction(bin, live, makeAction(live, "opacity", 300, 400));
  EXPECT_EQ(1u, graveyard.numMedias());
  EXPECT_TRUE(watched.expired());
  EXPECT_THROW(graveyard.addAction(bin, boost::shared_ptr<const Media>(),
                                   makeAction(live, "opacity", 500, 600)),
               OrvMediaLib::OrvException);
}

}  // namespace
