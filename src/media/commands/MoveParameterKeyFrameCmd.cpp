#include "media/commands/MoveParameterKeyFrameCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

MoveParameterKeyFrameCmd::MoveParameterKeyFrameCmd(
    boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const ParameterInterface> parameter, long long oldTime, long long newTime)
    : NamedCommand("MoveParameterKeyFrameCmd"),
      parametric_(parametric),
      parameter_(parameter),
      oldTime_(oldTime),
      newTime_(newTime) {}

boost::shared_ptr<MoveParameterKeyFrameCmd> MoveParameterKeyFrameCmd::create(
    boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const ParameterInterface> parameter, long long oldTime, long long newTime) {
  return boost::shared_ptr<MoveParameterKeyFrameCmd>(
      new MoveParameterKeyFrameCmd(parametric, parameter, oldTime, newTime));
}

MoveParameterKeyFrameCmd* MoveParameterKeyFrameCmd::clone() const {
  return new MoveParameterKeyFrameCmd(parametric_, parameter_, oldTime_, newTime_);
}

bool MoveParameterKeyFrameCmd::execute(CommandHandler* handler) {
  handler->moveParameterKeyFrame(parametric_, parameter_, oldTime_, newTime_);
  return true;
}

bool MoveParameterKeyFrameCmd::unexecute(CommandHandler* handler) {
  handler->moveParameterKeyFrame(parametric_, parameter_, newTime_, oldTime_);
  return true;
}

}  // namespace KelMediaLib
