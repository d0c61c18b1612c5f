#pragma once

#include "actions/CenterAction.h"
#include "actions/OrigToModified.h"
#include "actions/ParameterRange.h"
#include "core/Observer.h"
#include "core/ThreadSafe.h"
#include "media/media/TextBox.h"
#include "values/Parameter.h"

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>

#include <exception>
#include <string>

namespace actiontest {

using KelMediaLib::Parameter;

struct CountingObserver : KelMediaLib::Observer {
  int count = 0;
  void observerUpdate() override { ++count; }
};

/// The text of the exception that `f` throws; empty if it throws none.
template <class F>
std::string failure(F f) {
  try {
    f();
  } catch (const std::exception& e) {
    return e.what();
  }
  return "";
}

struct Model {
  boost::shared_ptr<KelMediaLib::ThreadSafe> lock = boost::make_shared<KelMediaLib::ThreadSafe>();

  /// A text box showing (0, duration); its key frame axis is its own time.
  boost::shared_ptr<KelMediaLib::TextBox> media(long long duration = 1000) const {
    return KelMediaLib::TextBox::create("text", duration, 100.0f, 100.0f, lock);
  }
};

inline boost::shared_ptr<Parameter<double>> parameterOf(const KelMediaLib::Parametric& owner,
                                                        const std::string& name) {
  return boost::dynamic_pointer_cast<Parameter<double>>(owner.parameterNamed(name));
}

/// A range on `owner`'s parameter `name` from `left` to `right`, its key
/// frames put into the parameter unless `inParameter` is false.
inline OrvMediaLib::ParameterRange makeRange(
    const boost::shared_ptr<const KelMediaLib::Parametric>& owner, const std::string& name,
    long long left, long long right, bool inParameter = true) {
  const boost::shared_ptr<Parameter<double>> parameter = parameterOf(*owner, name);
  const auto leftFrame = boost::make_shared<KelMediaLib::KeyFrame<double>>(left, 0.25);
  const auto rightFrame = boost::make_shared<KelMediaLib::KeyFrame<double>>(right, 0.75);
  if (inParameter) {
    OrvMediaLib::ParameterRange::addRangesKeyframes(parameter, leftFrame, rightFrame, nullptr,
                                                    nullptr);
  }
  return OrvMediaLib::ParameterRange(owner, parameter, leftFrame, rightFrame,
                                     OrvMediaLib::OrigToModified());
}

inline boost::shared_ptr<OrvMediaLib::CenterAction> makeAction(
    const boost::shared_ptr<const KelMediaLib::Parametric>& owner, const std::string& name,
    long long left, long long right) {
  const auto action = boost::make_shared<OrvMediaLib::CenterAction>(owner);
  action->addParameterRange(makeRange(owner, name, left, right));
  return action;
}

}  // namespace actiontest
