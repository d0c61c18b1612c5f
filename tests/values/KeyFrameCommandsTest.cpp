#include "core/KelMediaLibException.h"
#include "core/ThreadSafe.h"
#include "values/AddParameterKeyFrameCmd.h"
#include "values/ChangeParameterKeyFrameByDeltaCmd.h"
#include "values/ChangeParameterKeyFrameCmd.h"
#include "values/InterpolatingParam.h"
#include "values/LeftParameter.h"
#include "values/ParameterTestSupport.h"
#include "values/RemoveParameterKeyFrameCmd.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/scoped_ptr.hpp>

#include <limits>
#include <string>
#include <tuple>
#include <typeinfo>

// Only the const form is run below; this checks that the other compiles too.
template class KelMediaLib::ChangeParameterKeyFrameByDeltaCmd<KelMediaLib::Parameter<double>>;

namespace {

using namespace KelMediaLib;
using parameterTests::text;
using parameterTests::xmlOf;
typedef boost::shared_ptr<const Parametric> ParametricPtr;

// Maps its own time onto its parameters' axis by a factor.
class ScaledParametric : public Parametric {
 public:
  explicit ScaledParametric(double factor) : factor_(factor) {}
  double toParameterTime(double time) const override { return time * factor_; }

 private:
  double factor_;
};

// The whole state of a parameter: "time=value;" for each key frame.
template <class P>
std::string snapshot(const P& parameter) {
  std::string all;
  for (const auto& frame : parameter.keyFrames()) {
    all += std::to_string(frame->time()) + "=" + text(frame->value()) + ";";
  }
  return all;
}

const std::string none = text(static_cast<const void*>(nullptr));

// A value other than the default, for each value type.
template <class V>
V sample(V*) {
  return std::get<V>(std::make_tuple(2.5, 0.25f, Point(1.5, -2, 3), Color(0.5f, 0.25f, 1, 1),
                                     AudioPosition(-0.5, 0.75), std::string("a<b \"c\" & d")));
}
template <class T>
boost::shared_ptr<Interpolater<T>> sample(boost::shared_ptr<Interpolater<T>>*) {
  return LeftInterpolater<T>::getInstance();
}

template <class P>
class AddRemoveTest : public ::testing::Test {};
typedef ::testing::Types<Parameter<double>, Parameter<float>, Parameter<Point>, Parameter<Color>,
                         Parameter<AudioPosition>, LeftParameter<std::string>,
                         Parameter<boost::shared_ptr<Interpolater<double>>>,
                         Parameter<boost::shared_ptr<Interpolater<float>>>,
                         Parameter<boost::shared_ptr<Interpolater<Point>>>,
                         Parameter<boost::shared_ptr<Interpolater<Color>>>,
                         Parameter<boost::shared_ptr<Interpolater<AudioPosition>>>>
    ParameterTypes;
TYPED_TEST_SUITE(AddRemoveTest, ParameterTypes);

TYPED_TEST(AddRemoveTest, RoundTripsThroughUndoAndRedoAndTraces) {
  const auto owner = boost::make_shared<ThreadSafe>();
  const auto parameter = TypeParam::create(owner, "p", typename TypeParam::value_type());
  const auto value = sample(static_cast<typename TypeParam::value_type*>(nullptr));
  const ParametricPtr identity = boost::make_shared<Parametric>();
  const std::string atRest = snapshot(*parameter);
  const std::string added = atRest + "10=" + text(value) + ";";

  AddParameterKeyFrameCmd<TypeParam> add(parameter, 10, value);
  ASSERT_TRUE(add.execute(nullptr));
  EXPECT_EQ(added, snapshot(*parameter));
  EXPECT_EQ("<AddParameterKeyFrameCmd parametric=\"" + none + "\" parameter=\"" + text(parameter) +
                "\" time=\"10\" value=\"" + text(value) + "\"/>\n",
            xmlOf(add));
  EXPECT_TRUE(add.unexecute(nullptr));
  EXPECT_EQ(atRest, snapshot(*parameter));
  EXPECT_TRUE(add.reexecute(nullptr));
  EXPECT_EQ(added, snapshot(*parameter));

  RemoveParameterKeyFrameCmd<const TypeParam> remove(identity, parameter, 10);
  ASSERT_TRUE(remove.execute(nullptr));
  EXPECT_EQ(atRest, snapshot(*parameter));
  EXPECT_EQ("<RemoveParameterKeyFrameCmd parametric=\"" + text(identity) + "\" parameter=\"" +
                text(parameter) + "\" time=\"10\" removedValue=\"" + text(value) + "\"/>\n",
            xmlOf(remove));
  EXPECT_TRUE(remove.unexecute(nullptr));
  EXPECT_EQ(added, snapshot(*parameter));
  EXPECT_TRUE(remove.reexecute(nullptr));

  // Clones are blanks of the same type and refuse to run.
  boost::scoped_ptr<Command> addClone(add.clone());
  boost::scoped_ptr<Command> removeClone(remove.clone());
  EXPECT_EQ(typeid(add), typeid(*addClone));
  EXPECT_NE(std::string::npos, xmlOf(*addClone).find("parameter=\"" + none + "\" time=\"0\""));
  EXPECT_THROW(addClone->execute(nullptr), KelMediaLibException);
  EXPECT_THROW(removeClone->unexecute(nullptr), KelMediaLibException);
  EXPECT_EQ(atRest, snapshot(*parameter));
}

class KeyFrameCommandTest : public ::testing::Test {
 protected:
  boost::shared_ptr<ThreadSafe> owner = boost::make_shared<ThreadSafe>();
  boost::shared_ptr<Parameter<double>> parameter = Parameter<double>::create(owner, "p", 1.0);
  ParametricPtr halving = boost::make_shared<ScaledParametric>(0.5);
};

TEST_F(KeyFrameCommandTest, RefusalsLeaveTheParameterAsItWas) {
  const std::string before = snapshot(*parameter);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  typedef ChangeParameterKeyFrameCmd<Parameter<double>> Change;
  // A missing key frame (the parameter's own failure), a missing parametric,
  // times that map outside the 64-bit range.
  EXPECT_THROW(Change(nullptr, parameter, 5, 3.0).execute(nullptr), KelMediaLibException);
  EXPECT_THROW(
      RemoveParameterKeyFrameCmd<Parameter<double>>(nullptr, parameter, 0).execute(nullptr),
      KelMediaLibException);
  for (double factor : {nan, 2.0}) {
    const ParametricPtr mapping = boost::make_shared<ScaledParametric>(factor);
    EXPECT_THROW(
        Change(mapping, parameter, std::numeric_limits<long long>::max(), 3.0).execute(nullptr),
        KelMediaLibException);
  }
  EXPECT_EQ(before, snapshot(*parameter));
}

template <class P>
class ChangeKeyFrameTest : public KeyFrameCommandTest {};
typedef ::testing::Types<Parameter<double>, const Parameter<double>> ChangeTypes;
TYPED_TEST_SUITE(ChangeKeyFrameTest, ChangeTypes);

TYPED_TEST(ChangeKeyFrameTest, WritesAtTheRawOrMappedTruncatedTimeAndRetakesTheOldValue) {
  for (long long time : {10, 11, -10, -11}) {
    this->parameter->addKeyFrame(time, 3.0);
  }
  const std::string before = snapshot(*this->parameter);
  const struct {
    bool mapped;
    long long time;
    const char* after;
  } cases[] = {{false, 10, "-11=3;-10=3;0=1;10=9;11=3;"},
               {true, 21, "-11=3;-10=3;0=1;10=9;11=3;"},
               {true, -21, "-11=3;-10=9;0=1;10=3;11=3;"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.time);
    const ParametricPtr parametric = c.mapped ? this->halving : ParametricPtr();
    const auto change =
        ChangeParameterKeyFrameCmd<TypeParam>::create(parametric, this->parameter, c.time, 9.0);
    ASSERT_TRUE(change->execute(nullptr));
    EXPECT_EQ(c.after, snapshot(*this->parameter));
    EXPECT_EQ("<ChangeParameterKeyFrameCmd parametric=\"" + text(parametric) + "\" parameter=\"" +
                  text(this->parameter) + "\" time=\"" + std::to_string(c.time) +
                  "\" value=\"9\" oldValue=\"3\"/>\n",
              xmlOf(*change));
    ASSERT_TRUE(change->unexecute(nullptr));
    EXPECT_EQ(before, snapshot(*this->parameter));
  }

  // Redo takes the old value afresh.
  const auto change =
      ChangeParameterKeyFrameCmd<TypeParam>::create(this->halving, this->parameter, 21, 5.0);
  ASSERT_TRUE(change->execute(nullptr));
  ASSERT_TRUE(change->unexecute(nullptr));
  this->parameter->setKeyFrameValue(10, 7.0);
  ASSERT_TRUE(change->reexecute(nullptr));
  EXPECT_EQ(5.0, this->parameter->valueAt(10));
  ASSERT_TRUE(change->unexecute(nullptr));
  EXPECT_EQ(7.0, this->parameter->valueAt(10));

  boost::scoped_ptr<Command> clone(change->clone());
  EXPECT_EQ(typeid(*change), typeid(*clone));
  EXPECT_EQ("<ChangeParameterKeyFrameCmd parametric=\"" + none + "\" parameter=\"" + none +
                "\" time=\"0\" value=\"0\" oldValue=\"0\"/>\n",
            xmlOf(*clone));
  EXPECT_THROW(clone->execute(nullptr), KelMediaLibException);
}

class ChangeByDeltaTest : public KeyFrameCommandTest {
 protected:
  typedef ChangeParameterKeyFrameByDeltaCmd<const Parameter<double>> Delta;
  ChangeByDeltaTest() {
    interpolating->addKeyFrame(10, 3.0);
    interpolating->addKeyFrame(12, 5.0);
  }

  boost::shared_ptr<InterpolatingParam<double>> interpolating =
      InterpolatingParam<double>::create(owner, "i", 1.0);
};

TEST_F(ChangeByDeltaTest, ReadsAtTheUntruncatedTimeAndReplaysTheAbsoluteValue) {
  // 21 maps to 10.5, where the linear mix is 3.5; the key frame at 10 is set.
  const auto delta = Delta::create(halving, interpolating, 21, 1.0);
  boost::scoped_ptr<Delta> clone(delta->clone());
  EXPECT_EQ("ChangeParameterKeyFrameByDeltaCmd", delta->description());
  ASSERT_TRUE(delta->execute(nullptr));
  EXPECT_EQ("0=1;10=4.5;12=5;", snapshot(*interpolating));
  EXPECT_EQ(1u, delta->numUndoCommands());
  EXPECT_EQ("<ChangeParameterKeyFrameByDeltaCmd/>\n", xmlOf(*delta));

  ASSERT_TRUE(delta->unexecute(nullptr));
  EXPECT_EQ("0=1;10=3;12=5;", snapshot(*interpolating));
  interpolating->setKeyFrameValue(10, 100.0);
  ASSERT_TRUE(delta->reexecute(nullptr));
  EXPECT_EQ("0=1;10=4.5;12=5;", snapshot(*interpolating));
  ASSERT_TRUE(delta->unexecute(nullptr));

  // The clone carries time and delta and runs its own logic: 0.75 * 100 +
  // 0.25 * 5 + 1.
  ASSERT_TRUE(clone->execute(nullptr));
  EXPECT_EQ("0=1;10=77.25;12=5;", snapshot(*interpolating));

  // 23 maps to 11.5: a value is there, a key frame at 11 isn't.
  Delta missing(halving, interpolating, 23, 1.0);
  EXPECT_THROW(missing.execute(nullptr), KelMediaLibException);
  EXPECT_EQ(0u, missing.numUndoCommands());
  EXPECT_THROW(Delta(halving, nullptr, 0, 1.0).execute(nullptr), KelMediaLibException);
  EXPECT_EQ("0=1;10=77.25;12=5;", snapshot(*interpolating));
}

}  // namespace
