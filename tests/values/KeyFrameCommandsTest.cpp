#include "core/CommandHandler.h"
#include "core/KelMediaLibException.h"
#include "core/ThreadSafe.h"
#include "values/AddParameterKeyFrameCmd.h"
#include "values/ChangeParameterKeyFrameByDeltaCmd.h"
#include "values/ChangeParameterKeyFrameCmd.h"
#include "values/InterpolatingParam.h"
#include "values/LeftParameter.h"
#include "values/Parameter.h"
#include "values/Parametric.h"
#include "values/RemoveParameterKeyFrameCmd.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/scoped_ptr.hpp>
#include <boost/shared_ptr.hpp>

#include <iomanip>
#include <limits>
#include <sstream>
#include <string>
#include <typeinfo>

namespace KelMediaLib {
// The group is only run with a const parameter elsewhere; this checks that the
// writable form compiles as well.
template class ChangeParameterKeyFrameByDeltaCmd<Parameter<double>>;
}  // namespace KelMediaLib

namespace {

using namespace KelMediaLib;

// Maps its own time onto its parameters' axis by a factor (0.5 halves it).
class ScaledParametric : public Parametric {
 public:
  explicit ScaledParametric(double factor) : factor_(factor) {}
  double toParameterTime(double time) const override { return time * factor_; }

 private:
  double factor_;
};

template <class V>
void writeExact(std::ostream& out, const V& value) {
  out << std::setprecision(std::numeric_limits<double>::max_digits10) << value;
}
template <class U>
void writeExact(std::ostream& out, const boost::shared_ptr<U>& value) {
  out << static_cast<const void*>(value.get());
}

// The whole state of a parameter as text: "time=value" for each key frame.
template <class P>
std::string snapshot(const P& parameter) {
  std::ostringstream out;
  for (const auto& frame : parameter.keyFrames()) {
    out << frame->time() << '=';
    writeExact(out, frame->value());
    out << ';';
  }
  return out.str();
}

std::string xmlOf(const Command& command) {
  std::ostringstream out;
  XMLable::Options options(out);
  command.toXML(options, 0, std::string());
  return out.str();
}

template <class Object>
std::string address(const boost::shared_ptr<Object>& object) {
  std::ostringstream out;
  out << static_cast<const void*>(object.get());
  return out.str();
}

// Per parameter class: how to make one, a value to add and its trace form.
template <class P, class V>
struct PlainCase {
  typedef P Param;
  static boost::shared_ptr<P> make(const boost::shared_ptr<ThreadSafe>& owner, const V& rest) {
    return P::create(owner, "p", rest);
  }
};

struct DoubleCase : PlainCase<Parameter<double>, double> {
  static double rest() { return 1.0; }
  static double value() { return 2.5; }
  static std::string text() { return "2.5"; }
};
struct FloatCase : PlainCase<Parameter<float>, float> {
  static float rest() { return 1.0f; }
  static float value() { return 0.25f; }
  static std::string text() { return "0.25"; }
};
struct PointCase : PlainCase<Parameter<Point>, Point> {
  static Point rest() { return Point(); }
  static Point value() { return Point(1.5, -2, 3); }
  static std::string text() { return "(1.5,-2,3)"; }
};
struct ColorCase : PlainCase<Parameter<Color>, Color> {
  static Color rest() { return Color(); }
  static Color value() { return Color(0.5f, 0.25f, 1, 1); }
  static std::string text() { return "(0.5,0.25,1,1)"; }
};
struct AudioPositionCase : PlainCase<Parameter<AudioPosition>, AudioPosition> {
  static AudioPosition rest() { return AudioPosition(); }
  static AudioPosition value() { return AudioPosition(-0.5, 0.75); }
  static std::string text() { return "(-0.5,0.75)"; }
};
struct StringCase : PlainCase<LeftParameter<std::string>, std::string> {
  static std::string rest() { return "rest"; }
  static std::string value() { return "a<b \"c\" & d"; }
  static std::string text() { return value(); }
};
template <class T>
struct InterpolaterCase
    : PlainCase<Parameter<boost::shared_ptr<Interpolater<T>>>, boost::shared_ptr<Interpolater<T>>> {
  static boost::shared_ptr<Interpolater<T>> rest() { return LinearInterpolater<T>::getInstance(); }
  static boost::shared_ptr<Interpolater<T>> value() { return LeftInterpolater<T>::getInstance(); }
  static std::string text() { return address(value()); }
};

template <class Case>
class AddRemoveKeyFrameTest : public ::testing::Test {
 protected:
  typedef typename Case::Param P;

  boost::shared_ptr<ThreadSafe> owner = boost::make_shared<ThreadSafe>();
  boost::shared_ptr<P> parameter = Case::make(owner, Case::rest());
  boost::shared_ptr<const Parametric> identity = boost::make_shared<Parametric>();
};

typedef ::testing::Types<DoubleCase, FloatCase, PointCase, ColorCase, AudioPositionCase,
                         StringCase, InterpolaterCase<double>, InterpolaterCase<float>,
                         InterpolaterCase<Point>, InterpolaterCase<Color>,
                         InterpolaterCase<AudioPosition>>
    ParameterCases;
TYPED_TEST_SUITE(AddRemoveKeyFrameTest, ParameterCases);

TYPED_TEST(AddRemoveKeyFrameTest, AddAndRemoveRoundTripThroughUndoAndRedo) {
  typedef typename TypeParam::Param P;
  const std::string atRest = snapshot(*this->parameter);

  AddParameterKeyFrameCmd<P> add(this->parameter, 10, TypeParam::value());
  ASSERT_TRUE(add.execute(nullptr));
  const std::string added = snapshot(*this->parameter);
  ASSERT_EQ(2u, this->parameter->numKeyFrames());
  std::ostringstream expected;
  writeExact(expected, TypeParam::value());
  EXPECT_EQ(atRest + "10=" + expected.str() + ";", added);
  EXPECT_EQ("<AddParameterKeyFrameCmd parametric=\"" + address(boost::shared_ptr<Parametric>()) +
                "\" parameter=\"" + address(this->parameter) + "\" time=\"10\" value=\"" +
                TypeParam::text() + "\"/>\n",
            xmlOf(add));

  EXPECT_TRUE(add.unexecute(nullptr));
  EXPECT_EQ(atRest, snapshot(*this->parameter));
  EXPECT_TRUE(add.reexecute(nullptr));
  EXPECT_EQ(added, snapshot(*this->parameter));

  RemoveParameterKeyFrameCmd<const P> remove(this->identity, this->parameter, 10);
  ASSERT_TRUE(remove.execute(nullptr));
  EXPECT_EQ(atRest, snapshot(*this->parameter));
  EXPECT_EQ("<RemoveParameterKeyFrameCmd parametric=\"" + address(this->identity) +
                "\" parameter=\"" + address(this->parameter) + "\" time=\"10\" removedValue=\"" +
                TypeParam::text() + "\"/>\n",
            xmlOf(remove));
  EXPECT_TRUE(remove.unexecute(nullptr));
  EXPECT_EQ(added, snapshot(*this->parameter));
  EXPECT_TRUE(remove.reexecute(nullptr));
  EXPECT_EQ(atRest, snapshot(*this->parameter));
}

TYPED_TEST(AddRemoveKeyFrameTest, ClonesAreBlanksThatRefuseToRun) {
  typedef typename TypeParam::Param P;
  const std::string atRest = snapshot(*this->parameter);
  AddParameterKeyFrameCmd<P> add(this->parameter, 10, TypeParam::value());
  RemoveParameterKeyFrameCmd<P> remove(this->identity, this->parameter, 0);

  boost::scoped_ptr<Command> addClone(add.clone());
  boost::scoped_ptr<Command> removeClone(remove.clone());
  EXPECT_EQ(typeid(add), typeid(*addClone));
  EXPECT_EQ(typeid(remove), typeid(*removeClone));
  const std::string none = address(boost::shared_ptr<Parametric>());
  EXPECT_NE(std::string::npos,
            xmlOf(*addClone).find("parameter=\"" + none + "\" time=\"0\" value="));
  EXPECT_NE(std::string::npos,
            xmlOf(*removeClone).find("parametric=\"" + none + "\" parameter=\"" + none +
                                     "\" time=\"0\""));
  EXPECT_THROW(addClone->execute(nullptr), KelMediaLibException);
  EXPECT_THROW(addClone->unexecute(nullptr), KelMediaLibException);
  EXPECT_THROW(removeClone->execute(nullptr), KelMediaLibException);
  EXPECT_EQ(atRest, snapshot(*this->parameter));
}

class KeyFrameCommandTest : public ::testing::Test {
 protected:
  boost::shared_ptr<ThreadSafe> owner = boost::make_shared<ThreadSafe>();
  boost::shared_ptr<Parameter<double>> parameter = Parameter<double>::create(owner, "p", 1.0);
  boost::shared_ptr<const Parametric> halving = boost::make_shared<ScaledParametric>(0.5);
};

TEST_F(KeyFrameCommandTest, RemoveMapsTheTimeAndNeedsItsParametric) {
  parameter->addKeyFrame(-11, 3.0);
  parameter->addKeyFrame(-10, 4.0);
  const std::string before = snapshot(*parameter);

  // -21 / 2 = -10.5 truncates toward zero to -10, not down to -11.
  RemoveParameterKeyFrameCmd<Parameter<double>> remove(halving, parameter, -21);
  ASSERT_TRUE(remove.execute(nullptr));
  EXPECT_EQ("-11=3;0=1;", snapshot(*parameter));
  EXPECT_TRUE(remove.unexecute(nullptr));
  EXPECT_EQ(before, snapshot(*parameter));

  RemoveParameterKeyFrameCmd<Parameter<double>> withoutParametric(
      boost::shared_ptr<const Parametric>(), parameter, 0);
  EXPECT_THROW(withoutParametric.execute(nullptr), KelMediaLibException);
  EXPECT_EQ(before, snapshot(*parameter));
}

TEST_F(KeyFrameCommandTest, FailuresOfTheParameterPassThrough) {
  const std::string before = snapshot(*parameter);
  RemoveParameterKeyFrameCmd<Parameter<double>> removeMissing(halving, parameter, 20);
  EXPECT_THROW(removeMissing.execute(nullptr), KelMediaLibException);

  ChangeParameterKeyFrameCmd<Parameter<double>> changeMissing(
      boost::shared_ptr<const Parametric>(), parameter, 5, 2.0);
  EXPECT_THROW(changeMissing.execute(nullptr), KelMediaLibException);
  EXPECT_EQ(before, snapshot(*parameter));

  // Undo of an add whose key frame has gone meanwhile.
  AddParameterKeyFrameCmd<Parameter<double>> add(parameter, 7, 2.0);
  ASSERT_TRUE(add.execute(nullptr));
  parameter->removeKeyFrame(7);
  EXPECT_THROW(add.unexecute(nullptr), KelMediaLibException);
  EXPECT_EQ(before, snapshot(*parameter));
}

TEST_F(KeyFrameCommandTest, TimeThatMapsOutsideTheRangeIsRefused) {
  const struct {
    double factor;
    long long time;
  } cases[] = {
      {std::numeric_limits<double>::quiet_NaN(), 0},
      {std::numeric_limits<double>::infinity(), 1},
      {2.0, std::numeric_limits<long long>::max()},
      {2.0, std::numeric_limits<long long>::min()},
  };
  const std::string before = snapshot(*parameter);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.time);
    boost::shared_ptr<const Parametric> parametric = boost::make_shared<ScaledParametric>(c.factor);
    ChangeParameterKeyFrameCmd<Parameter<double>> change(parametric, parameter, c.time, 2.0);
    EXPECT_THROW(change.execute(nullptr), KelMediaLibException);
  }
  EXPECT_EQ(before, snapshot(*parameter));
}

template <class P>
class ChangeKeyFrameTest : public KeyFrameCommandTest {};

typedef ::testing::Types<Parameter<double>, const Parameter<double>> ChangeCases;
TYPED_TEST_SUITE(ChangeKeyFrameTest, ChangeCases);

TYPED_TEST(ChangeKeyFrameTest, WritesAtTheRawOrTheMappedTruncatedTime) {
  this->parameter->addKeyFrame(10, 3.0);
  this->parameter->addKeyFrame(11, 4.0);
  this->parameter->addKeyFrame(-10, 5.0);
  this->parameter->addKeyFrame(-11, 6.0);
  const std::string before = snapshot(*this->parameter);

  const struct {
    bool mapped;
    long long time;
    const char* after;
  } cases[] = {
      {false, 10, "-11=6;-10=5;0=1;10=9;11=4;"},
      {true, 21, "-11=6;-10=5;0=1;10=9;11=4;"},
      {true, 22, "-11=6;-10=5;0=1;10=3;11=9;"},
      {true, -21, "-11=6;-10=9;0=1;10=3;11=4;"},
      {false, -11, "-11=9;-10=5;0=1;10=3;11=4;"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.time);
    auto change = ChangeParameterKeyFrameCmd<TypeParam>::create(
        c.mapped ? this->halving : boost::shared_ptr<const Parametric>(), this->parameter, c.time,
        9.0);
    ASSERT_TRUE(change->execute(nullptr));
    EXPECT_EQ(c.after, snapshot(*this->parameter));
    EXPECT_TRUE(change->unexecute(nullptr));
    EXPECT_EQ(before, snapshot(*this->parameter));
  }
}

TYPED_TEST(ChangeKeyFrameTest, RedoTakesTheOldValueAgain) {
  auto change = ChangeParameterKeyFrameCmd<TypeParam>::create(this->halving, this->parameter, 1,
                                                              5.0);
  ASSERT_TRUE(change->execute(nullptr));
  EXPECT_EQ("<ChangeParameterKeyFrameCmd parametric=\"" + address(this->halving) +
                "\" parameter=\"" + address(this->parameter) +
                "\" time=\"1\" value=\"5\" oldValue=\"1\"/>\n",
            xmlOf(*change));
  ASSERT_TRUE(change->unexecute(nullptr));
  EXPECT_EQ("0=1;", snapshot(*this->parameter));

  this->parameter->setKeyFrameValue(0, 7.0);
  ASSERT_TRUE(change->reexecute(nullptr));
  EXPECT_EQ("0=5;", snapshot(*this->parameter));
  ASSERT_TRUE(change->unexecute(nullptr));
  EXPECT_EQ("0=7;", snapshot(*this->parameter));
}

TYPED_TEST(ChangeKeyFrameTest, CloneIsABlankThatRefusesToRun) {
  auto change = ChangeParameterKeyFrameCmd<TypeParam>::create(this->halving, this->parameter, 0,
                                                              5.0);
  boost::scoped_ptr<Command> clone(change->clone());
  EXPECT_EQ(typeid(*change), typeid(*clone));
  const std::string none = address(boost::shared_ptr<Parametric>());
  EXPECT_EQ("<ChangeParameterKeyFrameCmd parametric=\"" + none + "\" parameter=\"" + none +
                "\" time=\"0\" value=\"0\" oldValue=\"0\"/>\n",
            xmlOf(*clone));
  EXPECT_THROW(clone->execute(nullptr), KelMediaLibException);
  EXPECT_EQ("0=1;", snapshot(*this->parameter));
}

class ChangeByDeltaTest : public KeyFrameCommandTest {
 protected:
  ChangeByDeltaTest() {
    interpolating->addKeyFrame(10, 3.0);
    interpolating->addKeyFrame(12, 5.0);
  }

  boost::shared_ptr<InterpolatingParam<double>> interpolating =
      InterpolatingParam<double>::create(owner, "i", 1.0);
  // The commands never call their handler; a group only needs one to be given.
  int standIn = 0;
  CommandHandler* const handler = reinterpret_cast<CommandHandler*>(&standIn);
};

TEST_F(ChangeByDeltaTest, ReadsAtTheUntruncatedTimeAndReplaysTheAbsoluteValue) {
  const std::string before = snapshot(*interpolating);
  // Time 21 maps to 10.5, where the linear mix gives 3.5; the key frame
  // written is the one at 10.
  auto delta =
      ChangeParameterKeyFrameByDeltaCmd<const Parameter<double>>::create(halving, interpolating, 21,
                                                                         1.0);
  EXPECT_EQ("ChangeParameterKeyFrameByDeltaCmd", delta->description());
  ASSERT_TRUE(delta->execute(handler));
  const std::string after = snapshot(*interpolating);
  EXPECT_EQ("0=1;10=4.5;12=5;", after);
  EXPECT_EQ(1u, delta->numUndoCommands());
  EXPECT_EQ("<ChangeParameterKeyFrameByDeltaCmd/>\n", xmlOf(*delta));

  ASSERT_TRUE(delta->unexecute(handler));
  EXPECT_EQ(before, snapshot(*interpolating));
  interpolating->setKeyFrameValue(10, 100.0);
  ASSERT_TRUE(delta->reexecute(handler));
  EXPECT_EQ(after, snapshot(*interpolating));
  ASSERT_TRUE(delta->unexecute(handler));
  EXPECT_EQ("0=1;10=100;12=5;", snapshot(*interpolating));
}

TEST_F(ChangeByDeltaTest, CloneCarriesEverythingAndRunsOnItsOwn) {
  ChangeParameterKeyFrameByDeltaCmd<const Parameter<double>> delta(halving, interpolating, 21, 1.0);
  ASSERT_TRUE(delta.execute(handler));
  ASSERT_TRUE(delta.unexecute(handler));

  boost::scoped_ptr<ChangeParameterKeyFrameByDeltaCmd<const Parameter<double>>> clone(
      delta.clone());
  EXPECT_EQ(0u, clone->numUndoCommands());
  ASSERT_TRUE(clone->execute(handler));
  EXPECT_EQ("0=1;10=4.5;12=5;", snapshot(*interpolating));
  ASSERT_TRUE(clone->unexecute(handler));
  EXPECT_EQ("0=1;10=3;12=5;", snapshot(*interpolating));
}

TEST_F(ChangeByDeltaTest, FailureRecordsNothing) {
  const std::string before = snapshot(*interpolating);
  // 23 maps to 11.5: a value is there, a key frame at 11 isn't.
  ChangeParameterKeyFrameByDeltaCmd<const Parameter<double>> delta(halving, interpolating, 23, 1.0);
  try {
    delta.execute(handler);
    ADD_FAILURE() << "a missing key frame was changed";
  } catch (const KelMediaLibException& e) {
    EXPECT_NE(std::string::npos, std::string(e.what()).find("key frame at 11"));
  }
  EXPECT_EQ(0u, delta.numUndoCommands());
  EXPECT_EQ(before, snapshot(*interpolating));

  ChangeParameterKeyFrameByDeltaCmd<const Parameter<double>> blank(
      halving, boost::shared_ptr<const Parameter<double>>(), 0, 1.0);
  EXPECT_THROW(blank.execute(handler), KelMediaLibException);
}

}  // namespace
