#pragma once

#include "core/Cloneable.h"
#include "core/KelObject.h"
#include "core/XMLable.h"

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class CommandHandler;

/// An undoable edit. A command never edits the model itself: it calls the
/// operations of the `CommandHandler` it is given, so that every edit passes
/// through the project.
///
/// Contract: `execute` once; then `unexecute` and `reexecute` in turn,
/// beginning with `unexecute`. `execute` captures what undo needs; `unexecute`
/// restores it; `reexecute` repeats the edit with the objects that `execute`
/// made. A command that returns false from `execute` did nothing and isn't
/// recorded.
class Command : public KelObject,
                public Cloneable,
                public XMLable,
                public boost::enable_shared_from_this<Command> {
 public:
  ~Command() override;

  std::string description() const override;
  /// A copy of the command, owned by the caller; commands that can't be
  /// copied return null.
  Command* clone() const override = 0;
  virtual bool execute(CommandHandler* handler) = 0;
  virtual bool unexecute(CommandHandler* handler) = 0;
  /// By default, runs `execute` again.
  virtual bool reexecute(CommandHandler* handler);
  /// Absorbs `other`, which has been executed right after this command, so
  /// that both undo and redo as one. Only groups absorb: the default throws
  /// `KelMediaLibException`.
  virtual void combine(boost::shared_ptr<Command> other);

  void xmlName(Options& options) const override = 0;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  // A command traces itself as a bare element unless it says otherwise.
  bool xmlHasAttributes() const override { return false; }
  bool xmlHasBody() const override { return false; }
};

}  // namespace KelMediaLib
