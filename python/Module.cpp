#include "Bindings.h"

PYBIND11_MODULE(orvmedialib, m) {
  m.doc() =
      "The editing model of a screen-recording video editor: projects, tracks, media, "
      "parameters with key frames, actions, undo and redo, automatic zoom.";
  orvpython::bindErrors(m);
  orvpython::bindParameters(m);
  orvpython::bindTimeline(m);
  orvpython::bindActions(m);
  // Last: automatic zoom adds methods to the classes of the project and media.
  orvpython::bindProject(m);
  orvpython::bindZoom(m);
  orvpython::bindJobs(m);
}
