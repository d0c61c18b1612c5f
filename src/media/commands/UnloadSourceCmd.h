#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Source;

/// Takes a source out of the project's source bin; undo puts it back.
class UnloadSourceCmd : public NamedCommand {
 public:
  static boost::shared_ptr<UnloadSourceCmd> create(boost::shared_ptr<const Source> source);

  UnloadSourceCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  UnloadSourceCmd(boost::shared_ptr<const Source> source);

  boost::shared_ptr<const Source> source_;
};

}  // namespace KelMediaLib
