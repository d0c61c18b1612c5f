#include "media/commands/SwapEffectsCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

SwapEffectsCmd::SwapEffectsCmd(boost::shared_ptr<const Effectable> effectable, int first,
                               int second)
    : NamedCommand("SwapEffectsCmd"), effectable_(effectable), first_(first), second_(second) {}

boost::shared_ptr<SwapEffectsCmd> SwapEffectsCmd::create(
    boost::shared_ptr<const Effectable> effectable, int first, int second) {
  return boost::shared_ptr<SwapEffectsCmd>(new SwapEffectsCmd(effectable, first, second));
}

SwapEffectsCmd* SwapEffectsCmd::clone() const {
  return new SwapEffectsCmd(effectable_, first_, second_);
}

bool SwapEffectsCmd::execute(CommandHandler* handler) {
  handler->swapEffectOrder(effectable_, first_, second_);
  return true;
}

bool SwapEffectsCmd::unexecute(CommandHandler* handler) {
  handler->swapEffectOrder(effectable_, first_, second_);
  return true;
}

}  // namespace KelMediaLib
