#pragma once

#include "commands/OrvCommand.h"

namespace OrvMediaLib {

/// Base of the concrete commands: keeps the handler of action edits (not
/// owned, null until set) and leaves the edit itself to subclasses.
class OrvCommandImpl : public OrvCommand {
 public:
  OrvCommandImpl();
  ~OrvCommandImpl() override;

  void setOrvCommandHandler(OrvCommandHandler* handler) override;
  OrvCommandHandler* orvCommandHandler() const override;

 private:
  OrvCommandHandler* handler_;
};

}  // namespace OrvMediaLib
