#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;

/// Unlinks two linked media; undo links them again, each at the place in
/// the other's links that it had.
class UnlinkCmd : public NamedCommand {
 public:
  static boost::shared_ptr<UnlinkCmd> create(boost::shared_ptr<const Media> first,
                                             boost::shared_ptr<const Media> second);

  UnlinkCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  UnlinkCmd(boost::shared_ptr<const Media> first, boost::shared_ptr<const Media> second);

  boost::shared_ptr<const Media> first_;
  boost::shared_ptr<const Media> second_;
  int firstIndex_;
  int secondIndex_;
};

}  // namespace KelMediaLib
