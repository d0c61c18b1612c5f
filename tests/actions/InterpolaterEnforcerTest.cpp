#include "actions/InterpolaterEnforcer.h"
#include "core/ThreadSafe.h"
#include "values/InterpolatingParam.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/smart_ptr/bad_weak_ptr.hpp>

#include <string>

using namespace OrvMediaLib;
using KelMediaLib::Interpolater;
using KelMediaLib::InterpolatingParam;

namespace {

typedef boost::shared_ptr<Interpolater<double>> InterpolaterPtr;

const InterpolaterPtr sigmoid =
    KelMediaLib::EaseInOutDoubleExponentialSigmoidInterpolater<double>::getInstance();
const InterpolaterPtr linear = KelMediaLib::LinearInterpolater<double>::getInstance();
const InterpolaterPtr left = KelMediaLib::LeftInterpolater<double>::getInstance();

}  // namespace

TEST(InterpolaterEnforcerTest, OnlyCompanionKeyFrameGetsTheInterpolaterDestinedForTheName) {
  const auto project = boost::make_shared<KelMediaLib::ThreadSafe>();
  const struct {
    std::string name;
    InterpolaterPtr expected;
  } rows[] = {
      {"translation0", sigmoid}, {"translation1", sigmoid}, {"translation2", sigmoid},
      {"scale0", sigmoid},       {"scale1", sigmoid},       {"scale2", linear},
      {"opacity", linear},       {"Translation1", linear},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const auto parameter = InterpolatingParam<double>::create(project, row.name, 0.0);
    const auto companion = parameter->interpolaterParameter();
    // Moved off 0 and away from the linear one, so that both the place and
    // the value show whether the enforcer wrote.
    companion->moveKeyFrame(0, -1);
    companion->setKeyFrameValue(-1, left);
    // Called from inside a command, under the project's write lock.
    const KelMediaLib::ReadWriteMutex::ScopedWriteLock lock(project->mutex());
    InterpolaterEnforcer::enforceFirstInterpolater(parameter);
    EXPECT_EQ(row.expected, companion->keyFrame(-1)->value());
  }
}

TEST(InterpolaterEnforcerTest, LeavesAChosenInterpolaterAndCompanionlessParametersAlone) {
  const auto project = boost::make_shared<KelMediaLib::ThreadSafe>();
  const auto parameter = InterpolatingParam<double>::create(project, "scale0", 0.0);
  const auto companion = parameter->interpolaterParameter();
  companion->setKeyFrameValue(0, left);
  companion->addKeyFrame(100, left);
  InterpolaterEnforcer::enforceFirstInterpolater(parameter);
  EXPECT_EQ(left, companion->keyFrame(0)->value());
  EXPECT_EQ(left, companion->keyFrame(100)->value());

  const auto plain = KelMediaLib::Parameter<double>::create(project, "scale0", 0.0);
  EXPECT_NO_THROW(InterpolaterEnforcer::enforceFirstInterpolater(plain));

  auto gone = boost::make_shared<KelMediaLib::ThreadSafe>();
  const auto orphan = InterpolatingParam<double>::create(gone, "opacity", 0.0);
  gone.reset();
  EXPECT_THROW(InterpolaterEnforcer::enforceFirstInterpolater(orphan), boost::bad_weak_ptr);
}
