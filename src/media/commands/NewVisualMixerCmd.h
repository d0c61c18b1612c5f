#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class VisualMixer;

/// Makes a visual mixer of the given size and installs it in the timeline in
/// place of the one there was; undo puts the previous one back (or none),
/// redo installs the same new mixer again.
class NewVisualMixerCmd : public NamedCommand {
 public:
  NewVisualMixerCmd(float width, float height);
  static boost::shared_ptr<NewVisualMixerCmd> create(float width, float height);

  NewVisualMixerCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;
  bool reexecute(CommandHandler* handler) override;

  /// The mixer that the first run made; null before it.
  boost::shared_ptr<const VisualMixer> mixer() const { return mixer_; }

 private:
  float width_;
  float height_;
  boost::shared_ptr<const VisualMixer> mixer_;
  boost::shared_ptr<const VisualMixer> previous_;
};

}  // namespace KelMediaLib
