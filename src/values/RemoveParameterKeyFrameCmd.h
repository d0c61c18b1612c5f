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

/// Removes the key frame that stands at a time of a parametric's own axis
/// (mapped onto the parameter's axis, truncated toward zero); undo adds a key
/// frame with the removed value back. `P` is any parameter class, const or
/// not; the parameter is held as const and written through a cast.
///
/// The removed value is unset until the first `execute`. A clone is a blank of
/// this type (no parametric, no parameter, no time or value) and refuses to
/// run.
template <class P>
class RemoveParameterKeyFrameCmd : public Command {
 public:
  typedef typename std::remove_const<P>::type Writable;
  typedef typename Writable::value_type value_type;

  /// The parametric is required: it gives the axis of `time`.
  RemoveParameterKeyFrameCmd(boost::shared_ptr<const Parametric> parametric,
                             boost::shared_ptr<const P> parameter, long long time)
      : parametric_(parametric), parameter_(parameter), time_(time), removedValue_() {}

  /// A blank: nothing of `other` is taken over.
  RemoveParameterKeyFrameCmd(const RemoveParameterKeyFrameCmd& other)
      : Command(other), time_(0), removedValue_() {}

  RemoveParameterKeyFrameCmd& operator=(const RemoveParameterKeyFrameCmd&) = delete;

  RemoveParameterKeyFrameCmd* clone() const override {
    return new RemoveParameterKeyFrameCmd(*this);
  }

  bool execute(CommandHandler*) override {
    removedValue_ = writable()->removeKeyFrame(keyFrameTime());
    return true;
  }

  bool unexecute(CommandHandler*) override {
    writable()->addKeyFrame(keyFrameTime(), removedValue_);
    return true;
  }

  void xmlName(Options& options) const override {
    writeLiteral(options.out, "RemoveParameterKeyFrameCmd");
  }

  void xmlAttributes(Options& options) const override {
    std::ostream& out = options.out;
    keyFrameCmd::writeTarget(out, parametric_, parameter_, time_);
    out << " removedValue=\"";
    keyFrameCmd::writeValue(out, removedValue_);
    out << '"';
  }


 protected:
  bool xmlHasAttributes() const override { return true; }

 private:
  boost::shared_ptr<Writable> writable() const {
    keyFrameCmd::require(parameter_, "RemoveParameterKeyFrameCmd", "parameter");
    return boost::const_pointer_cast<Writable>(parameter_);
  }

  long long keyFrameTime() const {
    keyFrameCmd::require(parametric_, "RemoveParameterKeyFrameCmd", "parametric");
    return keyFrameCmd::parameterTime(parametric_, time_);
  }

  boost::shared_ptr<const Parametric> parametric_;
  boost::shared_ptr<const P> parameter_;
  long long time_;
  value_type removedValue_;
};

}  // namespace KelMediaLib
