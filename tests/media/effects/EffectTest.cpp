#include "core/KelMediaLibException.h"
#include "media/effects/EffectCatalogue.h"
#include "media/effects/GenericEffect.h"
#include "media/media/MediaTestSupport.h"
#include "media/media/VMFile.h"
#include "values/InterpolatingParam.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

using namespace KelMediaLib;

namespace {

double restValue(const GenericEffect& effect, const std::string& name) {
  const auto parameter =
      boost::dynamic_pointer_cast<InterpolatingParam<double>>(effect.parameterWithName(name));
  return parameter ? parameter->valueAt(0) : -1.0;
}

TEST(EffectCatalogueTest, BuiltInEffectsHaveTheirParametersAtRest) {
  mediatest::Project p;
  struct Case {
    std::string effect;
    std::vector<std::pair<std::string, double>> parameters;
  };
  const Case cases[] = {
      {"Blur", {{"radius", 5.0}}},
      {"ColorAdjust", {{"brightness", 0.0}, {"contrast", 1.0}, {"saturation", 1.0}}},
      {"DropShadow", {{"offset", 4.0}, {"blur", 4.0}, {"opacity", 0.5}}},
      {"CursorHighlight", {{"size", 40.0}, {"opacity", 0.5}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.effect);
    EXPECT_TRUE(EffectCatalogue::instance().hasEffect(c.effect));
    const boost::shared_ptr<GenericEffect> effect = GenericEffect::create(c.effect, p.lock);
    EXPECT_EQ(c.effect, effect->name());
    ASSERT_EQ(c.parameters.size(), effect->parameters().size());
    for (std::size_t i = 0; i < c.parameters.size(); ++i) {
      EXPECT_EQ(c.parameters[i].first, effect->parameters()[i]->name());
      EXPECT_EQ(c.parameters[i].second, restValue(*effect, c.parameters[i].first));
    }
  }
}

TEST(EffectCatalogueTest, UnknownNamesGiveEffectsWithoutParametersAndApplicationsRegisterTheirs) {
  mediatest::Project p;
  const boost::shared_ptr<GenericEffect> unknown = GenericEffect::create("Sparkle", p.lock);
  EXPECT_EQ("Sparkle", unknown->name());
  EXPECT_TRUE(unknown->parameters().empty());
  EXPECT_FALSE(unknown->parameterWithName("radius"));

  EffectCatalogue::instance().registerEffect("Vignette", {{"strength", 0.3}, {"radius", 0.8}});
  const boost::shared_ptr<GenericEffect> vignette = GenericEffect::create("Vignette", p.lock);
  EXPECT_EQ(0.3, restValue(*vignette, "strength"));
  EXPECT_EQ(0.8, restValue(*vignette, "radius"));
  const std::vector<std::string> names = EffectCatalogue::instance().effectNames();
  EXPECT_NE(names.end(), std::find(names.begin(), names.end(), "Vignette"));

  EXPECT_THROW(EffectCatalogue::instance().registerEffect("", {}), KelMediaLibException);
  EXPECT_THROW(EffectCatalogue::instance().registerEffect("Twice", {{"a", 1.0}, {"a", 2.0}}),
               KelMediaLibException);
  EXPECT_THROW(EffectCatalogue::instance().registerEffect("Nameless", {{"", 1.0}}),
               KelMediaLibException);
  EXPECT_FALSE(EffectCatalogue::instance().hasEffect("Twice"));
}

TEST(EffectTest, CloneHasFreshIdentsAndIndependentKeyFrames) {
  mediatest::Project p;
  const boost::shared_ptr<GenericEffect> blur = GenericEffect::create("Blur", p.lock);
  const auto radius =
      boost::dynamic_pointer_cast<InterpolatingParam<double>>(blur->parameterWithName("radius"));
  radius->addKeyFrame(20, 9.0);
  const std::unique_ptr<GenericEffect> copy(blur->clone());
  EXPECT_NE(blur->xmlIdent(), copy->xmlIdent());
  EXPECT_EQ("Blur", copy->name());
  EXPECT_EQ(nullptr, copy->owner());
  const auto copyRadius =
      boost::dynamic_pointer_cast<InterpolatingParam<double>>(copy->parameterWithName("radius"));
  ASSERT_TRUE(copyRadius);
  EXPECT_NE(radius, copyRadius);
  EXPECT_EQ(9.0, copyRadius->valueAt(20));
  copyRadius->setKeyFrameValue(20, 1.0);
  EXPECT_EQ(9.0, radius->valueAt(20));
}

TEST(EffectableTest, MediaHoldsEffectsInOrderAndIsTheirTimeOwner) {
  mediatest::Project p;
  const auto media = VMFile::create(Range<long long>(0, 100), p.lock, p.source, 0);
  const auto other = VMFile::create(Range<long long>(0, 100), p.lock, p.source, 0);
  const boost::shared_ptr<GenericEffect> blur = GenericEffect::create("Blur", p.lock);
  const boost::shared_ptr<GenericEffect> shadow = GenericEffect::create("DropShadow", p.lock);
  const boost::shared_ptr<GenericEffect> tint = GenericEffect::create("ColorAdjust", p.lock);
  EXPECT_EQ(10.0, blur->toParameterTime(10.0));

  media->insertEffect(blur, -1);
  media->insertEffect(shadow, 0);
  media->insertEffect(tint, 2);
  EXPECT_EQ(3, media->numEffects());
  EXPECT_EQ(shadow, media->effectAt(0));
  EXPECT_EQ(blur, media->effectAt(1));
  EXPECT_EQ(2, media->indexOfEffect(tint.get()));
  EXPECT_EQ(-1, other->indexOfEffect(tint.get()));
  EXPECT_EQ(media.get(), blur->owner());

  media->setScalar(2.0);
  media->setStart(100);
  EXPECT_EQ(5.0, blur->toParameterTime(10.0));
  EXPECT_EQ(20.0, blur->fromParameterTime(10.0));
  EXPECT_EQ(media->toLocalTime(130), blur->toLocalTime(130));

  EXPECT_THROW(media->insertEffect(blur, -1), KelMediaLibException);
  EXPECT_THROW(other->insertEffect(blur, -1), KelMediaLibException);
  EXPECT_THROW(media->insertEffect(GenericEffect::create("Blur", p.lock), 4), KelMediaLibException);
  EXPECT_THROW(media->insertEffect(boost::shared_ptr<Effect>(), -1), KelMediaLibException);
  EXPECT_THROW(media->effectAt(3), KelMediaLibException);
  EXPECT_THROW(media->removeEffect(-1), KelMediaLibException);
  EXPECT_THROW(media->swapEffects(0, 3), KelMediaLibException);
  EXPECT_EQ(3, media->numEffects());

  media->swapEffects(0, 2);
  EXPECT_EQ(tint, media->effectAt(0));
  EXPECT_EQ(shadow, media->effectAt(2));
  EXPECT_EQ(blur, media->removeEffect(1));
  EXPECT_EQ(nullptr, blur->owner());
  EXPECT_EQ(10.0, blur->toParameterTime(10.0));
  other->insertEffect(blur, -1);
  EXPECT_EQ(other.get(), blur->owner());
}

}  // namespace
