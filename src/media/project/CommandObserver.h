#pragma once

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Command;

/// Told by a project of each top-level command that it executed, undid or
/// redid, once per history entry, after the project has released its write
/// lock. A group is reported as the one command it is.
class CommandObserver {
 public:
  virtual ~CommandObserver() = default;

  virtual void commandExecuted(const boost::shared_ptr<const Command>& command) = 0;
  virtual void commandUndone(const boost::shared_ptr<const Command>& command) = 0;
  virtual void commandRedone(const boost::shared_ptr<const Command>& command) = 0;
};

}  // namespace KelMediaLib
