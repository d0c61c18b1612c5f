#pragma once

#include "core/MultiCommand.h"
#include "core/XMLText.h"
#include "values/ChangeParameterKeyFrameCmd.h"
#include "values/KeyFrameCmdSupport.h"
#include "values/Parametric.h"

#include <boost/shared_ptr.hpp>

#include <ostream>
#include <string>

namespace KelMediaLib {

/// Moves the value of the key frame at a time of a parameter of doubles by a
/// delta. The first run reads the value at the time and runs a
/// `ChangeParameterKeyFrameCmd` with the sum, so undo and redo replay that
/// absolute value however the parameter changed in between.
///
/// The time is on the parametric's own axis (the parameter's, without a
/// parametric). The value is read at the mapped time as it stands, the key
/// frame is written at the mapped time truncated toward zero.
template <class P>
class ChangeParameterKeyFrameByDeltaCmd : public MultiCommand {
 public:
  ChangeParameterKeyFrameByDeltaCmd(boost::shared_ptr<const Parametric> parametric,
                                    boost::shared_ptr<const P> parameter, long long time,
                                    double delta)
      : parametric_(parametric), parameter_(parameter), time_(time), delta_(delta) {}

  /// A copy with the same objects, time and delta, that hasn't run.
  ChangeParameterKeyFrameByDeltaCmd(const ChangeParameterKeyFrameByDeltaCmd& other) = default;
  ChangeParameterKeyFrameByDeltaCmd& operator=(const ChangeParameterKeyFrameByDeltaCmd&) = delete;

  static boost::shared_ptr<ChangeParameterKeyFrameByDeltaCmd<P>> create(
      boost::shared_ptr<const Parametric> parametric, boost::shared_ptr<const P> parameter,
      long long time, double delta) {
    return boost::shared_ptr<ChangeParameterKeyFrameByDeltaCmd<P>>(
        new ChangeParameterKeyFrameByDeltaCmd<P>(parametric, parameter, time, delta));
  }

  std::string description() const override { return "ChangeParameterKeyFrameByDeltaCmd"; }

  ChangeParameterKeyFrameByDeltaCmd* clone() const override {
    return new ChangeParameterKeyFrameByDeltaCmd(*this);
  }

  void executeCommands(CommandHandler const*) override {
    keyFrameCmd::require(parameter_, "ChangeParameterKeyFrameByDeltaCmd", "parameter");
    const double at = parametric_ ? parametric_->toParameterTime(static_cast<double>(time_))
                                  : static_cast<double>(time_);
    const double value = parameter_->valueAt(at) + delta_;
    MultiCommand::execute(boost::shared_ptr<Command>(
        new ChangeParameterKeyFrameCmd<P>(parametric_, parameter_, time_, value)));
  }

  void xmlName(Options& options) const override {
    writeLiteral(options.out, "ChangeParameterKeyFrameByDeltaCmd");
  }

  void xmlBody(Options&, int) const override {}

 protected:
  bool xmlHasBody() const override { return false; }

 private:
  boost::shared_ptr<const Parametric> parametric_;
  boost::shared_ptr<const P> parameter_;
  long long time_;
  double delta_;
};

}  // namespace KelMediaLib
