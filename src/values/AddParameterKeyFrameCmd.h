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

/// Adds a key frame to a parameter at a time of the parameter's axis; undo
/// removes it again. `P` is any parameter class (`Parameter<T>`,
/// `LeftParameter<T>`, a companion of interpolaters), const or not; the
/// parameter is held as const and written through a cast.
///
/// The command holds no parametric (it exists for the trace form and keeps
/// the time mapping of the other key frame commands). A clone is a blank of
/// this type (no parameter, no time or value) and refuses to run.
template <class P>
class AddParameterKeyFrameCmd : public Command {
 public:
  typedef typename std::remove_const<P>::type Writable;
  typedef typename Writable::value_type value_type;

  AddParameterKeyFrameCmd(boost::shared_ptr<const P> parameter, long long time,
                          const value_type& value)
      : parameter_(parameter), time_(time), value_(value) {}

  /// A blank: nothing of `other` is taken over.
  AddParameterKeyFrameCmd(const AddParameterKeyFrameCmd& other)
      : Command(other), time_(0), value_() {}

  AddParameterKeyFrameCmd& operator=(const AddParameterKeyFrameCmd&) = delete;

  AddParameterKeyFrameCmd* clone() const override { return new AddParameterKeyFrameCmd(*this); }

  bool execute(CommandHandler*) override {
    writable()->addKeyFrame(keyFrameTime(), value_);
    return true;
  }

  bool unexecute(CommandHandler*) override {
    writable()->removeKeyFrame(keyFrameTime());
    return true;
  }

  void xmlName(Options& options) const override {
    writeLiteral(options.out, "AddParameterKeyFrameCmd");
  }

  void xmlAttributes(Options& options) const override {
    std::ostream& out = options.out;
    keyFrameCmd::writeTarget(out, parametric_, parameter_, time_);
    out << " value=\"";
    keyFrameCmd::writeValue(out, value_);
    out << '"';
  }


 protected:
  bool xmlHasAttributes() const override { return true; }

 private:
  boost::shared_ptr<Writable> writable() const {
    keyFrameCmd::require(parameter_, "AddParameterKeyFrameCmd", "parameter");
    return boost::const_pointer_cast<Writable>(parameter_);
  }

  long long keyFrameTime() const { return keyFrameCmd::parameterTime(parametric_, time_); }

  boost::shared_ptr<const Parametric> parametric_;
  boost::shared_ptr<const P> parameter_;
  long long time_;
  value_type value_;
};

}  // namespace KelMediaLib
