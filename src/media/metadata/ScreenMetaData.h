#pragma once

#include "core/KelObject.h"
#include "core/ProjectEditRate.h"
#include "core/XMLable.h"
#include "values/Parameter.h"
#include "values/Point.h"
#include "values/Rect.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <string>
#include <utility>
#include <vector>

namespace KelMediaLib {

class FileRepresentation;
class ProjectEditRate;
class ThreadSafe;

/// What a screen recording noted besides its pictures, as four parameters
/// over the recording's source time in edit units of the project's rate:
/// the front window, the cursor's location, the cursor's actions (a bit mask)
/// and the rectangles of the screen that changed. Coordinates have their
/// origin at the top left of the screen.
///
/// Each setter reads one file: UTF-8 text, one record a line, the time in
/// seconds from the start of the recording then the values, blanks between;
/// `#` starts a comment, blank lines are skipped. Record forms:
/// - front window: `t x y width height`
/// - cursor location: `t x y`
/// - cursor action: `t mask` (a whole number, 0 or more)
/// - changed rectangles: `t n x1 y1 w1 h1 ... xn yn wn hn`
/// Numbers are read in the C form ('.' for decimals), whatever the locale;
/// coordinates take any finite float. A time becomes edit units of the
/// project's rate by `secondsToEditUnits` (the nearest unit, halves away
/// from zero); a later record at the same edit unit wins. A relative file
/// name is read beside the media's file. The setters build the metadata
/// before it is shared (set on a `VMFile` by command); each replaces its
/// parameter as a whole, or throws and changes nothing.
///
/// Written as `<ScreenMetaData>` with a `<ParameterFile filename paramName/>`
/// for each file read, "paramName" being "topmostWindowCoordinates",
/// "cursorLocation", "cursorAction" or "dirtyRects".
class ScreenMetaData : public KelObject, public XMLable {
 public:
  /// Metadata with four parameters at rest (their default value at time
  /// 0), belonging to `project`, of the media `file`, reading times with the
  /// rate of `editRate`. None of the three is owned.
  static boost::shared_ptr<ScreenMetaData> create(boost::weak_ptr<const ThreadSafe> project,
                                                  boost::weak_ptr<const FileRepresentation> file,
                                                  boost::weak_ptr<const ProjectEditRate> editRate);

  ~ScreenMetaData() override;

  /// The front window's rectangle ("topmostWindowCoordinates").
  virtual boost::shared_ptr<const Parameter<Rect<float>>> frontWindowParam() const;
  /// The cursor's position ("cursorLocation"); z is 0.
  virtual boost::shared_ptr<const Parameter<Point>> cursorLocationParam() const;
  /// The cursor's actions, one bit each ("cursorAction").
  virtual boost::shared_ptr<const Parameter<int>> cursorActionParam() const;
  /// The rectangles that changed at each time ("dirtyRects").
  virtual boost::shared_ptr<const Parameter<std::vector<Rect<float>>>> dirtyRectsParam() const;

  /// Each reads its parameter from a file. Throws `KelMediaLibException`
  /// naming the file when it can't be read or isn't a regular file (a device,
  /// a pipe, a folder), naming it and the line number
  /// (from 1) at a malformed line, and when the project's edit rate is gone.
  void setFrontWindowFile(const std::string& fileName);
  void setCursorLocationFile(const std::string& fileName);
  void setCursorActionFile(const std::string& fileName);
  void setDirtyRectsFile(const std::string& fileName);

  /// Whether any file gave a record: a key frame beyond the resting ones.
  virtual bool hasContent() const;

  /// The files read, as ("paramName", file name as given) in the order of
  /// the four parameters; a parameter never set has none.
  std::vector<std::pair<std::string, std::string>> parameterFiles() const;

  /// The path a file name is read from: a relative name lies in the
  /// folder of the media's file, if the media is still there.
  std::string pathOf(const std::string& fileName) const;

  void xmlName(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  bool xmlHasAttributes() const override { return false; }

 private:
  ScreenMetaData(boost::weak_ptr<const ThreadSafe> project,
                 boost::weak_ptr<const FileRepresentation> file,
                 boost::weak_ptr<const ProjectEditRate> editRate);

  /// The project's edit rate; throws when the project is gone.
  EditRate editRate() const;

  boost::weak_ptr<const ThreadSafe> project_;
  boost::weak_ptr<const FileRepresentation> file_;
  boost::weak_ptr<const ProjectEditRate> editRate_;

  boost::shared_ptr<Parameter<Rect<float>>> frontWindow_;
  boost::shared_ptr<Parameter<Point>> cursorLocation_;
  boost::shared_ptr<Parameter<int>> cursorAction_;
  boost::shared_ptr<Parameter<std::vector<Rect<float>>>> dirtyRects_;

  std::string frontWindowFile_;
  std::string cursorLocationFile_;
  std::string cursorActionFile_;
  std::string dirtyRectsFile_;
  bool frontWindowContent_;
  bool cursorLocationContent_;
  bool cursorActionContent_;
  bool dirtyRectsContent_;
};

}  // namespace KelMediaLib
