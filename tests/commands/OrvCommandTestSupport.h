#pragma once

#include "commands/OrvCommandImpl.h"

#include <boost/make_shared.hpp>

#include <stdexcept>
#include <string>
#include <vector>

namespace orvtest {

typedef std::vector<std::string> Log;

// A leaf that logs its steps ("do a", "undo a", "redo a") and the timeline
// handler each got; it throws instead at the step named by `failOn`.
struct StepCmd : OrvMediaLib::OrvCommandImpl {
  StepCmd(Log& stepLog, std::string stepId, std::string failStep)
      : log(stepLog), id(std::move(stepId)), failOn(std::move(failStep)) {}
  void execute(KelMediaLib::CommandHandler* h) override { step("do", h); }
  void unexecute(KelMediaLib::CommandHandler* h) override { step("undo", h); }
  void reexecute(KelMediaLib::CommandHandler* h) override { step("redo", h); }
  void step(const std::string& what, KelMediaLib::CommandHandler* h) {
    if (what == failOn) throw std::runtime_error(what + " " + id + " failed");
    log.push_back(what + " " + id);
    handlers.push_back(h);
  }
  Log& log;
  std::string id, failOn;
  std::vector<KelMediaLib::CommandHandler*> handlers;
};

inline boost::shared_ptr<StepCmd> step(Log& log, const std::string& id,
                                       const std::string& failOn = "") {
  return boost::make_shared<StepCmd>(log, id, failOn);
}

}  // namespace orvtest
