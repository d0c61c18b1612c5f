#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Effectable;

/// Swaps two effects of a media, given by index; undo swaps them back.
class SwapEffectsCmd : public NamedCommand {
 public:
  static boost::shared_ptr<SwapEffectsCmd> create(boost::shared_ptr<const Effectable> effectable,
                                                  int first, int second);

  SwapEffectsCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  SwapEffectsCmd(boost::shared_ptr<const Effectable> effectable, int first, int second);

  boost::shared_ptr<const Effectable> effectable_;
  int first_;
  int second_;
};

}  // namespace KelMediaLib
