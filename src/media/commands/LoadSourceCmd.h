#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace KelMediaLib {

class Source;

/// Loads a file into the project's source bin through the handler's
/// `loadSource`, which asks the registered stats loaders; undo unloads the
/// source, redo puts the same source back. A file that no loader opens is a
/// `KelMediaLibException` naming the path, and nothing changes.
class LoadSourceCmd : public NamedCommand {
 public:
  static boost::shared_ptr<LoadSourceCmd> create(const std::string& fileName);

  LoadSourceCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;
  bool reexecute(CommandHandler* handler) override;

  /// The source that the last run loaded; null before the first.
  boost::shared_ptr<const Source> source() const { return source_; }

 private:
  LoadSourceCmd(const std::string& fileName);

  std::string fileName_;
  boost::shared_ptr<const Source> source_;
};

}  // namespace KelMediaLib
