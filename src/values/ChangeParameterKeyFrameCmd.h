#pragma once

#include "core/Command.h"
#include "core/XMLText.h"
#include "values/KeyFrameCmdSupport.h"
#include "values/Parametric.h"

#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>

#include <ostream>
#include <type_traits>

namespace KelMediaLib {

/// Sets the value of the key frame that stands at a time of a parameter of
/// doubles. `P` is `Parameter<double>` or `Parameter<double> const`; the
/// parameter is held as const and written through a cast, which is the
/// command's privilege.
///
/// With a parametric, the time is on the parametric's own axis and is mapped
/// onto the parameter's (truncated toward zero); without one it is the
/// parameter's time. Redo runs `execute` again and so takes the old value
/// afresh. A clone is a blank of this type (no parametric, no parameter, no
/// values) and refuses to run.
template <class P>
class ChangeParameterKeyFrameCmd : public Command {
 public:
  typedef typename std::remove_const<P>::type Writable;

  ChangeParameterKeyFrameCmd(boost::shared_ptr<const Parametric> parametric,
                             boost::shared_ptr<const P> parameter, long long time, double value)
      : parametric_(parametric),
        parameter_(parameter),
        time_(time),
        value_(value),
        oldValue_(0.0) {}

  /// A blank: nothing of `other` is taken over.
  ChangeParameterKeyFrameCmd(const ChangeParameterKeyFrameCmd& other)
      : Command(other), time_(0), value_(0.0), oldValue_(0.0) {}

  ChangeParameterKeyFrameCmd& operator=(const ChangeParameterKeyFrameCmd&) = delete;

  static boost::shared_ptr<ChangeParameterKeyFrameCmd<P>> create(
      boost::shared_ptr<const Parametric> parametric, boost::shared_ptr<const P> parameter,
      long long time, double value) {
    return boost::shared_ptr<ChangeParameterKeyFrameCmd<P>>(
        new ChangeParameterKeyFrameCmd<P>(parametric, parameter, time, value));
  }

  ChangeParameterKeyFrameCmd* clone() const override {
    return new ChangeParameterKeyFrameCmd(*this);
  }

  bool execute(CommandHandler*) override {
    oldValue_ = writable()->setKeyFrameValue(keyFrameTime(), value_);
    return true;
  }

  bool unexecute(CommandHandler*) override {
    writable()->setKeyFrameValue(keyFrameTime(), oldValue_);
    return true;
  }

  void xmlName(Options& options) const override {
    writeLiteral(options.out, "ChangeParameterKeyFrameCmd");
  }

  void xmlAttributes(Options& options) const override {
    std::ostream& out = options.out;
    keyFrameCmd::writeTarget(out, parametric_, parameter_, time_);
    out << " value=\"" << value_ << "\" oldValue=\"" << oldValue_ << '"';
  }


 protected:
  bool xmlHasAttributes() const override { return true; }

 private:
  boost::shared_ptr<Writable> writable() const {
    keyFrameCmd::require(parameter_, "ChangeParameterKeyFrameCmd", "parameter");
    return boost::const_pointer_cast<Writable>(parameter_);
  }

  long long keyFrameTime() const { return keyFrameCmd::parameterTime(parametric_, time_); }

  boost::shared_ptr<const Parametric> parametric_;
  boost::shared_ptr<const P> parameter_;
  long long time_;
  double value_;
  double oldValue_;
};

}  // namespace KelMediaLib
