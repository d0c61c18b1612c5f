#include "actions/FadeInModifier.h"
#include "actions/IdentityTransform.h"
#include "actions/ModifiedToOrig.h"
#include "actions/OrigToModified.h"
#include "actions/OrigToModifiedWithCeiling.h"
#include "actions/PureScaleTransform.h"
#include "actions/RestoreModifier.h"
#include "actions/ScaleTransform.h"
#include "actions/SetTransform.h"
#include "actions/TranslateTransform.h"
#include "core/ThreadSafe.h"
#include "values/Parameter.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <cmath>
#include <limits>
#include <memory>

using namespace OrvMediaLib;
using KelMediaLib::Parameter;

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();

// NaN is a value like any other here: NaN in, NaN out.
bool sameValue(double expected, double actual) {
  return expected == actual || (std::isnan(expected) && std::isnan(actual));
}

}  // namespace

TEST(TransformTest, CombinesOriginalAndValueAndSoDoesItsClone) {
  const SetTransform set;
  const ScaleTransform scale;
  const PureScaleTransform pureScale;
  const TranslateTransform translate;
  const IdentityTransform identity;
  const struct {
    const Transform& transform;
    double original, value, expected;
  } rows[] = {
      {scale, 0.0, 150.0, 1.5},     {scale, 2.0, 1.5, 3.0},      {scale, kNaN, 2.0, kNaN},
      {pureScale, 0.0, 150.0, 0.0}, {pureScale, 2.0, 1.5, 3.0},  {identity, 3.0, 9.0, 3.0},
      {set, 3.0, 9.0, 9.0},         {translate, 3.0, 9.0, 12.0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.original << ", " << row.value);
    EXPECT_PRED2(sameValue, row.expected, row.transform.transform(row.original, row.value));
    const std::unique_ptr<Transform> copy(row.transform.clone());
    EXPECT_PRED2(sameValue, row.expected, copy->transform(row.original, row.value));
  }
}

TEST(ModifierTest, LeftAndRightValuesOfEachModifierAndItsClone) {
  const auto project = boost::make_shared<KelMediaLib::ThreadSafe>();
  const auto at = [&](double value) {
    return boost::shared_ptr<const Parameter<double>>(
        Parameter<double>::create(project, "p", value));
  };
  // 2 from time 0, 7 from time 100: the value at time 150 isn't that at 0.
  const auto animated = Parameter<double>::create(project, "p", 2.0);
  animated->addKeyFrame(100, 7.0);

  const SetTransform set;
  const TranslateTransform translate;
  const OrigToModified origToModified;
  const ModifiedToOrig modifiedToOrig;
  const OrigToModifiedWithCeiling ceiling(0.8);
  const FadeInModifier fadeIn;
  const RestoreModifier restore;
  const struct {
    const Modifier& modifier;
    boost::shared_ptr<const Parameter<double>> parameter;
    const Transform& transform;
    double value, left, right;
  } rows[] = {
      {origToModified, at(0.5), translate, 0.25, 0.5, 0.75},
      {modifiedToOrig, at(0.5), translate, 0.25, 0.75, 0.5},
      {ceiling, at(0.5), set, 0.9, 0.5, 0.8},
      {ceiling, at(0.5), set, 0.7, 0.5, 0.7},
      {ceiling, at(0.5), set, kNaN, 0.5, kNaN},
      {fadeIn, at(1.0), set, 0.5, 0.0, 0.5},
      {fadeIn, at(0.5), set, 3.0, 0.5, 1.0},
      {fadeIn, at(0.5), set, kNaN, 0.5, kNaN},
      {restore, animated, set, 9.0, 7.0, 2.0},
      {origToModified, nullptr, set, 9.0, kNaN, 9.0},
  };
  int index = 0;
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << "row " << index++);
    const std::unique_ptr<Modifier> copy(row.modifier.clone());
    for (const Modifier* modifier : {&row.modifier, static_cast<const Modifier*>(copy.get())}) {
      EXPECT_PRED2(sameValue, row.left,
                   modifier->calcLeftValue(row.parameter, row.transform, 150, row.value));
      EXPECT_PRED2(sameValue, row.right,
                   modifier->calcRightValue(row.parameter, row.transform, 150, row.value));
    }
  }
}
