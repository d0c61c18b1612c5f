#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;

/// Links two media both ways, so that removing one from its track takes the
/// other with it; undo unlinks them.
class LinkCmd : public NamedCommand {
 public:
  static boost::shared_ptr<LinkCmd> create(boost::shared_ptr<const Media> first,
                                           boost::shared_ptr<const Media> second);

  LinkCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  LinkCmd(boost::shared_ptr<const Media> first, boost::shared_ptr<const Media> second);

  boost::shared_ptr<const Media> first_;
  boost::shared_ptr<const Media> second_;
};

}  // namespace KelMediaLib
