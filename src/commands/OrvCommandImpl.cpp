#include "commands/OrvCommandImpl.h"

namespace OrvMediaLib {

OrvCommandImpl::OrvCommandImpl() : handler_(nullptr) {}

OrvCommandImpl::~OrvCommandImpl() = default;

void OrvCommandImpl::setOrvCommandHandler(OrvCommandHandler* handler) {
  handler_ = handler;
}

OrvCommandHandler* OrvCommandImpl::orvCommandHandler() const {
  return handler_;
}

}  // namespace OrvMediaLib
