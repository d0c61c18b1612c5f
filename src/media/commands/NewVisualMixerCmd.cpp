#include "media/commands/NewVisualMixerCmd.h"

#include "core/CommandHandler.h"
#include "media/timeline/VisualMixer.h"

#include <boost/pointer_cast.hpp>

namespace KelMediaLib {

NewVisualMixerCmd::NewVisualMixerCmd(float width, float height)
    : NamedCommand("NewVisualMixerCmd"), width_(width), height_(height) {}

boost::shared_ptr<NewVisualMixerCmd> NewVisualMixerCmd::create(float width, float height) {
  return boost::shared_ptr<NewVisualMixerCmd>(new NewVisualMixerCmd(width, height));
}

NewVisualMixerCmd* NewVisualMixerCmd::clone() const {
  return new NewVisualMixerCmd(width_, height_);
}

bool NewVisualMixerCmd::execute(CommandHandler* handler) {
  const boost::shared_ptr<const VisualMixer> previous = handler->visualMixer();
  mixer_ = handler->newVisualMixer(width_, height_);
  previous_ = previous;
  return true;
}

bool NewVisualMixerCmd::unexecute(CommandHandler* handler) {
  handler->removeVisualMixer();
  if (previous_) {
    handler->newVisualMixer(boost::const_pointer_cast<VisualMixer>(previous_));
  }
  return true;
}

bool NewVisualMixerCmd::reexecute(CommandHandler* handler) {
  handler->newVisualMixer(boost::const_pointer_cast<VisualMixer>(mixer_));
  return true;
}

}  // namespace KelMediaLib
