#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Effect;
class Effectable;

/// Appends an effect, which no one holds yet, to the effects of a media;
/// undo takes it away again.
class AddEffectCmd : public NamedCommand {
 public:
  static boost::shared_ptr<AddEffectCmd> create(boost::shared_ptr<const Effectable> effectable,
                                                boost::shared_ptr<const Effect> effect);

  AddEffectCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  AddEffectCmd(boost::shared_ptr<const Effectable> effectable,
               boost::shared_ptr<const Effect> effect);

  boost::shared_ptr<const Effectable> effectable_;
  boost::shared_ptr<const Effect> effect_;
};

}  // namespace KelMediaLib
