#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class ParameterInterface;
class Parametric;

/// Moves the key frame of a parameter of a parametric from `oldTime` to
/// `newTime`, both on the parameter's own axis; undo moves it back. The key
/// frame stays the same object.
class MoveParameterKeyFrameCmd : public NamedCommand {
 public:
  static boost::shared_ptr<MoveParameterKeyFrameCmd> create(
      boost::shared_ptr<const Parametric> parametric,
      boost::shared_ptr<const ParameterInterface> parameter, long long oldTime, long long newTime);

  MoveParameterKeyFrameCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  MoveParameterKeyFrameCmd(boost::shared_ptr<const Parametric> parametric,
                           boost::shared_ptr<const ParameterInterface> parameter, long long oldTime,
                           long long newTime);

  boost::shared_ptr<const Parametric> parametric_;
  boost::shared_ptr<const ParameterInterface> parameter_;
  long long oldTime_;
  long long newTime_;
};

}  // namespace KelMediaLib
