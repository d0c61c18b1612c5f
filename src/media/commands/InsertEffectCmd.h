#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Effect;
class Effectable;

/// Puts an effect, which no one holds yet, at `index` of the effects of a media
/// (-1: at the end); undo takes it away again.
class InsertEffectCmd : public NamedCommand {
 public:
  static boost::shared_ptr<InsertEffectCmd> create(boost::shared_ptr<const Effectable> effectable,
                                                   boost::shared_ptr<const Effect> effect,
                                                   int index);

  InsertEffectCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  InsertEffectCmd(boost::shared_ptr<const Effectable> effectable,
                  boost::shared_ptr<const Effect> effect, int index);

  boost::shared_ptr<const Effectable> effectable_;
  boost::shared_ptr<const Effect> effect_;
  int index_;
};

}  // namespace KelMediaLib
