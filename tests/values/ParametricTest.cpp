#include "values/Parametric.h"

#include "core/KelMediaLibException.h"
#include "values/InterpolatingParam.h"
#include "values/Parameter.h"
#include "values/ParameterInterface.h"
#include "values/ParameterTestSupport.h"
#include "values/VectorParam.h"

#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

using KelMediaLib::InterpolatingParam;
using KelMediaLib::KelMediaLibException;
using KelMediaLib::Parameter;
using KelMediaLib::ParameterInterface;
using KelMediaLib::Parametric;
using KelMediaLib::ThreadSafe;
using KelMediaLib::VectorParam;

namespace {

class Owner : public Parametric {
 public:
  using Parametric::registerParameter;
  using Parametric::registerVector;
};

typedef boost::shared_ptr<ParameterInterface> Param;

class ParametricTest : public ::testing::Test {
 protected:
  void SetUp() override {
    owner.registerParameter(opacity);
    owner.registerVector(*scale);
    owner.registerParameter(text);
  }

  boost::shared_ptr<ThreadSafe> project = parameterTests::newProject();
  Param opacity = InterpolatingParam<double>::create(project, "opacity", 1.0);
  boost::shared_ptr<VectorParam> scale = VectorParam::create(project, "scale", {1, 1, 1});
  Param text = Parameter<std::string>::create(project, "text", "");
  Owner owner;
};

TEST_F(ParametricTest, FindsPlainParametersAndVectorMembersByName) {
  const struct {
    const char* name;
    Param expected;
  } cases[] = {
      {"opacity", opacity},     {"text", text},     {"scale0", scale->at(0)},
      {"scale2", scale->at(2)}, {"scale", Param()}, {"scale3", Param()},
      {"Opacity", Param()},     {"", Param()},      {"interpolater", Param()},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.expected, owner.parameterNamed(c.name)) << c.name;
  }
  EXPECT_EQ((std::vector<Param>{opacity, scale->at(0), scale->at(1), scale->at(2), text}),
            owner.parameters());
}

TEST_F(ParametricTest, RefusesASecondParameterOfTheSameNameAndNull) {
  const Param again = Parameter<double>::create(project, "opacity", 0.0);
  try {
    owner.registerParameter(again);
    ADD_FAILURE() << "a second \"opacity\" was accepted";
  } catch (const KelMediaLibException& e) {
    EXPECT_NE(std::string::npos, std::string(e.what()).find("\"opacity\"")) << e.what();
  }
  EXPECT_THROW(owner.registerVector(*VectorParam::create(project, "scale", {0})),
               KelMediaLibException);
  EXPECT_THROW(owner.registerParameter(Param()), KelMediaLibException);

  // A vector with one clashing member is refused as a whole.
  const Param blur1 = Parameter<double>::create(project, "blur1", 0.0);
  owner.registerParameter(blur1);
  EXPECT_THROW(owner.registerVector(*VectorParam::create(project, "blur", {0, 0, 0})),
               KelMediaLibException);
  EXPECT_FALSE(owner.parameterNamed("blur0"));
  EXPECT_FALSE(owner.parameterNamed("blur2"));
  EXPECT_EQ(blur1, owner.parameterNamed("blur1"));
  EXPECT_EQ(opacity, owner.parameterNamed("opacity"));
  EXPECT_EQ(scale->at(0), owner.parameterNamed("scale0"));
  EXPECT_EQ(6u, owner.parameters().size());
}

TEST_F(ParametricTest, ACopyOwnsNoParametersAndMapsTimesByIdentity) {
  const Owner copy(owner);
  EXPECT_FALSE(copy.parameterNamed("opacity"));
  EXPECT_TRUE(copy.parameters().empty());
  EXPECT_EQ(-2.5, owner.toParameterTime(-2.5));
  EXPECT_EQ(7.25, owner.fromParameterTime(7.25));
  EXPECT_EQ(-9, owner.toLocalTime(-9));
}

}  // namespace
