#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Clipping;

/// Takes a clipping out of the project's source bin; undo puts it back in its place.
class RemoveClippingCmd : public NamedCommand {
 public:
  static boost::shared_ptr<RemoveClippingCmd> create(boost::shared_ptr<Clipping> clipping);

  RemoveClippingCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  explicit RemoveClippingCmd(boost::shared_ptr<Clipping> clipping);

  boost::shared_ptr<Clipping> clipping_;
};

}  // namespace KelMediaLib
