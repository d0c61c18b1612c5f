#pragma once

#include "core/KelObject.h"
#include "media/parser/ChangedFileHandler.h"
#include "media/parser/MissingFileHandler.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

namespace KelMediaLib {

class ParserState;
class Project;
class StartState;
class SymbolTable;

/// Reads a project file: a stack of `ParserState`s follows Expat's element
/// events, one state per open element, and the states build the model by
/// executing commands on the project they create.
///
/// A parser serves one `parseProject`. Faults in the file are exceptions:
/// `ParserException` with the line and column of the element being read
/// (or of Expat's own error); other failures (an ident not in the symbol
/// table, a value that won't convert, a file system error) go through with
/// no position. A failed parse hands out no project.
class Parser : public KelObject, public MissingFileHandler, public ChangedFileHandler {
 public:
  /// Told the bytes read so far and the size of the input (0 when the
  /// stream can't tell it); returns false to cancel the load.
  using ProgressCallback = std::function<bool(std::uint64_t read, std::uint64_t total)>;

  /// Either handler may be null; neither is owned. Without a handler a
  /// missing or changed source file ends the load.
  Parser(MissingFileHandler* missingFileHandler, ChangedFileHandler* changedFileHandler);
  ~Parser() override;
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;

  /// Replaces the state that knows the document's root; call before parsing.
  void setStartState(boost::shared_ptr<StartState> startState);
  /// Folder against which the paths of source files are resolved first.
  void setPathPrefix(const std::string& prefix);
  std::string pathPrefix() const;
  /// Called after every block read; a callback that returns false ends the
  /// load with `LoadCancelledException`.
  void setProgressCallback(ProgressCallback callback);

  /// Reads the document from the stream and returns the project it built.
  boost::shared_ptr<Project> parseProject(std::istream& in);
  /// Reads the file at `path`; a file that won't open is an `IOException`
  /// "IOException: unable to open file "<path>".".
  boost::shared_ptr<Project> parseProject(std::string path);

  std::string handleMissingFile(const std::string& path) override;
  bool handleChangedFile(const std::string& path, const MediaFileStats* stored,
                         const MediaFileStats* current) override;

  /// Expat's element events, forwarded by the callbacks.
  void startElement(const char* name, const char** atts);
  void endElement(const char* name);

  /// The idents of the document read so far.
  SymbolTable& symbolTable() { return *symbols_; }

 private:
  struct Expat;

  // Keeps the exception that a callback threw; Expat is stopped and the
  // exception thrown again once `XML_ParseBuffer` has returned.
  void fail();

  std::deque<boost::shared_ptr<ParserState>> stack_;
  std::unique_ptr<SymbolTable> symbols_;
  MissingFileHandler* missingFileHandler_;
  ChangedFileHandler* changedFileHandler_;
  std::string pathPrefix_;
  boost::shared_ptr<StartState> startState_;
  ProgressCallback progress_;
  Expat* expat_ = nullptr;
  std::exception_ptr pending_;
};

}  // namespace KelMediaLib
