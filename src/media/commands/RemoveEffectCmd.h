#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Effect;
class Effectable;

/// Takes an effect away from a media; undo puts it back at the index it had.
class RemoveEffectCmd : public NamedCommand {
 public:
  static boost::shared_ptr<RemoveEffectCmd> create(boost::shared_ptr<const Effectable> effectable,
                                                   boost::shared_ptr<const Effect> effect);

  RemoveEffectCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  RemoveEffectCmd(boost::shared_ptr<const Effectable> effectable,
                  boost::shared_ptr<const Effect> effect);

  boost::shared_ptr<const Effectable> effectable_;
  boost::shared_ptr<const Effect> effect_;
  int index_;
};

}  // namespace KelMediaLib
