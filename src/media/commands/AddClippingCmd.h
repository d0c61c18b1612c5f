#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Clipping;

/// Puts a clipping into the project's source bin; undo takes it out again.
class AddClippingCmd : public NamedCommand {
 public:
  static boost::shared_ptr<AddClippingCmd> create(boost::shared_ptr<Clipping> clipping);

  AddClippingCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  explicit AddClippingCmd(boost::shared_ptr<Clipping> clipping);

  boost::shared_ptr<Clipping> clipping_;
};

}  // namespace KelMediaLib
