// A small application built against the installed package: it makes a
// project, puts a text box on a track, fades it in with an action, undoes and
// redoes the edit, and writes the project file to standard output.
#include <OrvMediaLib.h>

#include <cstdlib>
#include <iostream>
#include <sstream>

int main() {
  using namespace KelMediaLib;
  using namespace OrvMediaLib;

  const boost::shared_ptr<OrvProject> project = OrvProject::create(30, 1);
  project->execute(NewVisualMixerCmd::create(640, 480));
  const auto newTrack = NewVisualTrackCmd::create(-1);
  project->execute(newTrack);
  const boost::shared_ptr<TextBox> title = TextBox::create("Hello", 300, 320, 60, project);
  project->execute(AddMediaCmd::create(newTrack->track(), title, 0));

  ActionDescription fadeIn(ActionDescription::CENTER_ACTION);
  fadeIn.addParameterRange(
      ActionDescription::RangeDescription("opacity", OrigToModified(), SetTransform(), 1.0));
  project->execute(ChangeParameterKeyFrameCmd<Parameter<double>>::create(
      title, title->opacity(), 0, 0.0));
  const auto addAction = AddActionCmd::create(title, project->actionBin(), fadeIn, 30, 60);
  project->orvExecute(addAction);
  project->undo();
  project->redo();

  std::ostringstream document;
  XMLable::Options options(document);
  project->toXML(options, 0, "");
  std::cout << document.str();

  const bool ok = project->actionBin()->numActions() == 1 &&
                  title->opacity()->valueAt(90) == 1.0 && title->opacity()->valueAt(30) == 0.0;
  std::cerr << (ok ? "consumer: ok\n" : "consumer: unexpected model state\n");
  return ok ? EXIT_SUCCESS : EXIT_FAILURE;
}
