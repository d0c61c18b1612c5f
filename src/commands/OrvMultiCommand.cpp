#include "commands/OrvMultiCommand.h"

#include "actions/OrvException.h"
#include "commands/OrvCommandExecutor.h"
#include "core/MultiCommand.h"
#include "core/XMLText.h"

#include <ostream>

namespace OrvMediaLib {

namespace {

// Lends the media model's group logic to a group that isn't itself a
// `Command`. The owner holds the relay's only lasting reference, so the
// plain back pointer never dangles.
class MultiCommandRelay : public KelMediaLib::MultiCommand {
 public:
  explicit MultiCommandRelay(OrvMultiCommand* owner) : owner_(owner) {}

  void executeCommands(KelMediaLib::CommandHandler const* handler) override {
    owner_->executeCommands(handler);
  }
  std::string description() const override { return std::string(); }
  MultiCommandRelay* clone() const override { return nullptr; }
  void xmlName(Options& options) const override {
    KelMediaLib::writeLiteral(options.out, "MultiCommandRelay");
  }
  // The members are the owner's business: the relay writes a bare element.
  void xmlBody(Options&, int) const override {}

 protected:
  bool xmlHasBody() const override { return false; }

 private:
  OrvMultiCommand* owner_;
};

}  // namespace

OrvMultiCommand::OrvMultiCommand() : relay_(new MultiCommandRelay(this)) {}

OrvMultiCommand::OrvMultiCommand(const OrvMultiCommand& other)
    : OrvCommandImpl(other), relay_(new MultiCommandRelay(this)) {}

OrvMultiCommand::~OrvMultiCommand() = default;

void OrvMultiCommand::execute(KelMediaLib::CommandHandler* handler) {
  relay_->execute(handler);
}

void OrvMultiCommand::unexecute(KelMediaLib::CommandHandler* handler) {
  relay_->unexecute(handler);
}

void OrvMultiCommand::reexecute(KelMediaLib::CommandHandler* handler) {
  relay_->reexecute(handler);
}

void OrvMultiCommand::orvExecute(boost::shared_ptr<OrvCommand> command) {
  if (!command) {
    throw OrvException("OrvMultiCommand::orvExecute: no command given");
  }
  command->setOrvCommandHandler(orvCommandHandler());
  relay_->execute(boost::shared_ptr<KelMediaLib::Command>(OrvCommandExecutor::create(command)));
}

bool OrvMultiCommand::execute(boost::shared_ptr<KelMediaLib::Command> command) {
  return relay_->execute(command);
}

unsigned int OrvMultiCommand::numUndoCommands() const {
  return relay_->numUndoCommands();
}

}  // namespace OrvMediaLib
