#include "media/commands/AddEffectCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

AddEffectCmd::AddEffectCmd(boost::shared_ptr<const Effectable> effectable,
                           boost::shared_ptr<const Effect> effect)
    : NamedCommand("AddEffectCmd"), effectable_(effectable), effect_(effect) {}

boost::shared_ptr<AddEffectCmd> AddEffectCmd::create(boost::shared_ptr<const Effectable> effectable,
                                                     boost::shared_ptr<const Effect> effect) {
  return boost::shared_ptr<AddEffectCmd>(new AddEffectCmd(effectable, effect));
}

AddEffectCmd* AddEffectCmd::clone() const {
  return new AddEffectCmd(effectable_, effect_);
}

bool AddEffectCmd::execute(CommandHandler* handler) {
  handler->addEffect(effectable_, effect_);
  return true;
}

bool AddEffectCmd::unexecute(CommandHandler* handler) {
  handler->removeEffect(effectable_, effect_);
  return true;
}

}  // namespace KelMediaLib
