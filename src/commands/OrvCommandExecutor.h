#pragma once

#include "core/Command.h"

#include <boost/shared_ptr.hpp>

namespace OrvMediaLib {

class OrvCommand;

/// Makes an `OrvCommand` an entry of the media model's history: each of
/// `execute`, `unexecute` and `reexecute` runs the same operation of the
/// wrapped command with the same handler and reports success. The adapter
/// has no description, can't be copied (`clone` is null) and is written as
/// a bare "OrvCommandExecutor" element.
class OrvCommandExecutor : public KelMediaLib::Command {
 public:
  /// Wraps `command` (which must not be null) and shares its ownership.
  static boost::shared_ptr<OrvCommandExecutor> create(boost::shared_ptr<OrvCommand> command);
  ~OrvCommandExecutor() override;

  std::string description() const override;
  OrvCommandExecutor* clone() const override;
  bool execute(KelMediaLib::CommandHandler* handler) override;
  bool unexecute(KelMediaLib::CommandHandler* handler) override;
  bool reexecute(KelMediaLib::CommandHandler* handler) override;

  void xmlName(Options& options) const override;

 private:
  explicit OrvCommandExecutor(boost::shared_ptr<OrvCommand> command);

  boost::shared_ptr<OrvCommand> command_;
};

}  // namespace OrvMediaLib
