#pragma once

// A project built through the media model's commands (a visual mixer, one
// track, text boxes on it), zoom-like action descriptions, and text forms of
// key frames and bins for comparing states across undo and redo.

#include "actions/Action.h"
#include "actions/ActionBin.h"
#include "actions/ActionDescription.h"
#include "actions/OrigToModified.h"
#include "actions/ScaleTransform.h"
#include "actions/TranslateTransform.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/project/CommandHistory.h"
#include "media/media/TextBox.h"
#include "media/timeline/VisualTrack.h"
#include "project/InternalOrvProject.h"
#include "project/OrvProject.h"
#include "values/Parameter.h"

#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>

#include <exception>
#include <sstream>
#include <string>

namespace actioncmdtest {

using KelMediaLib::Media;
using KelMediaLib::Parameter;
using OrvMediaLib::Action;
using OrvMediaLib::ActionBin;
using OrvMediaLib::ActionDescription;

/// The text of the exception that `f` throws; empty if it throws none.
template <class F>
std::string failure(F f) {
  try {
    f();
  } catch (const std::exception& e) {
    return e.what();
  }
  return "";
}

struct Studio {
  boost::shared_ptr<OrvMediaLib::InternalOrvProject> project;
  boost::shared_ptr<const KelMediaLib::Track> track;

  Studio() {
    project = boost::dynamic_pointer_cast<OrvMediaLib::InternalOrvProject>(
        OrvMediaLib::OrvProject::create(30, 1));
    project->execute(KelMediaLib::NewVisualMixerCmd::create(640, 480));
    const auto trackCmd = KelMediaLib::NewVisualTrackCmd::create(0);
    project->execute(trackCmd);
    track = trackCmd->visualTrack();
  }

  /// A text box whose own time and key frame time are its source time,
  /// (0, duration), put on the track at `at`.
  boost::shared_ptr<const Media> addMedia(long long at, long long duration = 1000) const {
    const boost::shared_ptr<const Media> media =
        KelMediaLib::TextBox::create("text", duration, 100.0f, 100.0f, project);
    project->execute(KelMediaLib::AddMediaCmd::create(track, media, at));
    return media;
  }
};

inline boost::shared_ptr<Parameter<double>> parameter(const Media& media, const std::string& name) {
  return boost::dynamic_pointer_cast<Parameter<double>>(media.parameterNamed(name));
}

/// "t=v t=v ..." in time order, values to `digits` significant digits; times
/// alone for 0 digits.
inline std::string keyFrames(const Parameter<double>& parameter, int digits = 17) {
  std::ostringstream out;
  out.precision(digits);
  for (const auto& frame : parameter.keyFrames()) {
    out << (out.tellp() > 0 ? " " : "") << frame->time();
    if (digits) out << '=' << frame->value();
  }
  return out.str();
}

/// The key frames of each named parameter, one line each.
inline std::string keyFrames(const Media& media, std::initializer_list<const char*> names,
                             int digits = 17) {
  std::string text;
  for (const char* name : names) {
    text += std::string(name) + ": " + keyFrames(*parameter(media, name), digits) + "\n";
  }
  return text;
}

/// A centre action that zooms by `factor` about its start and pans by
/// (`dx`, `dy`): the values rise from the parameters' own to the changed ones.
inline ActionDescription zoom(double factor, double dx, double dy) {
  ActionDescription description(ActionDescription::CENTER_ACTION);
  const OrvMediaLib::OrigToModified rise;
  description.addParameterRange({"scale0", rise, OrvMediaLib::ScaleTransform(), factor});
  description.addParameterRange({"scale1", rise, OrvMediaLib::ScaleTransform(), factor});
  description.addParameterRange({"translation0", rise, OrvMediaLib::TranslateTransform(), dx});
  description.addParameterRange({"translation1", rise, OrvMediaLib::TranslateTransform(), dy});
  return description;
}

}  // namespace actioncmdtest
