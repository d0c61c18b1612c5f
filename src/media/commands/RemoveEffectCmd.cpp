#include "media/commands/RemoveEffectCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

RemoveEffectCmd::RemoveEffectCmd(boost::shared_ptr<const Effectable> effectable,
                                 boost::shared_ptr<const Effect> effect)
    : NamedCommand("RemoveEffectCmd"), effectable_(effectable), effect_(effect), index_(-1) {}

boost::shared_ptr<RemoveEffectCmd> RemoveEffectCmd::create(
    boost::shared_ptr<const Effectable> effectable, boost::shared_ptr<const Effect> effect) {
  return boost::shared_ptr<RemoveEffectCmd>(new RemoveEffectCmd(effectable, effect));
}

RemoveEffectCmd* RemoveEffectCmd::clone() const {
  return new RemoveEffectCmd(effectable_, effect_);
}

bool RemoveEffectCmd::execute(CommandHandler* handler) {
  index_ = handler->removeEffect(effectable_, effect_);
  return true;
}

bool RemoveEffectCmd::unexecute(CommandHandler* handler) {
  handler->insertEffect(effectable_, effect_, index_);
  return true;
}

}  // namespace KelMediaLib
