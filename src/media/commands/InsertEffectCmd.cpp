#include "media/commands/InsertEffectCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

InsertEffectCmd::InsertEffectCmd(boost::shared_ptr<const Effectable> effectable,
                                 boost::shared_ptr<const Effect> effect, int index)
    : NamedCommand("InsertEffectCmd"), effectable_(effectable), effect_(effect), index_(index) {}

boost::shared_ptr<InsertEffectCmd> InsertEffectCmd::create(
    boost::shared_ptr<const Effectable> effectable, boost::shared_ptr<const Effect> effect,
    int index) {
  return boost::shared_ptr<InsertEffectCmd>(new InsertEffectCmd(effectable, effect, index));
}

InsertEffectCmd* InsertEffectCmd::clone() const {
  return new InsertEffectCmd(effectable_, effect_, index_);
}

bool InsertEffectCmd::execute(CommandHandler* handler) {
  handler->insertEffect(effectable_, effect_, index_);
  return true;
}

bool InsertEffectCmd::unexecute(CommandHandler* handler) {
  handler->removeEffect(effectable_, effect_);
  return true;
}

}  // namespace KelMediaLib
