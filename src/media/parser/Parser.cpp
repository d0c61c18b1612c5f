#include "media/parser/Parser.h"

#include "core/EditJournal.h"
#include "core/IOException.h"
#include "core/ParserException.h"
#include "media/parser/LoadCancelledException.h"
#include "media/parser/StartStateImpl.h"
#include "media/parser/SymbolTable.h"
#include "media/project/InternalProject.h"
#include "media/project/Project.h"

#include <expat.h>

#include <fstream>
#include <istream>

namespace KelMediaLib {

namespace {

const int kBlockSize = 1024;

// The size of a seekable stream from where it stands; 0 when it can't tell.
std::uint64_t remainingSize(std::istream& in) {
  const std::istream::pos_type here = in.tellg();
  if (here == std::istream::pos_type(-1)) {
    in.clear();
    return 0;
  }
  in.seekg(0, std::ios::end);
  const std::istream::pos_type end = in.tellg();
  in.seekg(here);
  if (!in || end == std::istream::pos_type(-1)) {
    in.clear();
    in.seekg(here);
    return 0;
  }
  return static_cast<std::uint64_t>(end - here);
}

// The commands that built a project are no edit the user could undo; run
// under the discarding journal they are not recorded, and at the end the
// history names the state as loaded.
void clearHistory(const boost::shared_ptr<Project>& project) {
  if (const auto inner = boost::dynamic_pointer_cast<InternalProject>(project)) {
    inner->clearHistory();
  }
}

ParserException positioned(const ParserException& exception, XML_Parser expat) {
  return ParserException(exception.what(), static_cast<int>(XML_GetCurrentLineNumber(expat)),
                         static_cast<int>(XML_GetCurrentColumnNumber(expat)));
}

}  // namespace

// Frees the Expat parser on every way out of `parseProject`.
struct Parser::Expat {
  Expat() : parser(XML_ParserCreate("UTF-8")) {}
  ~Expat() {
    if (parser) {
      XML_ParserFree(parser);
    }
  }
  Expat(const Expat&) = delete;
  Expat& operator=(const Expat&) = delete;
  XML_Parser parser;
};

extern "C" {

static void KelPStartElement(void* userData, const XML_Char* name, const XML_Char** atts) {
  static_cast<Parser*>(userData)->startElement(name, atts);
}

static void KelPEndElement(void* userData, const XML_Char* name) {
  static_cast<Parser*>(userData)->endElement(name);
}
}

Parser::Parser(MissingFileHandler* missingFileHandler, ChangedFileHandler* changedFileHandler)
    : symbols_(new SymbolTable()),
      missingFileHandler_(missingFileHandler),
      changedFileHandler_(changedFileHandler),
      startState_(new StartStateImpl(this)) {}

Parser::~Parser() = default;

void Parser::setStartState(boost::shared_ptr<StartState> startState) {
  startState_ = std::move(startState);
}

void Parser::setPathPrefix(const std::string& prefix) {
  pathPrefix_ = prefix;
}

std::string Parser::pathPrefix() const {
  return pathPrefix_;
}

void Parser::setProgressCallback(ProgressCallback callback) {
  progress_ = std::move(callback);
}

boost::shared_ptr<Project> Parser::parseProject(std::istream& in) {
  Expat expat;
  if (!expat.parser) {
    throw KelMediaLibException("unable to create parser.");
  }
  XML_SetUserData(expat.parser, this);
  XML_SetElementHandler(expat.parser, KelPStartElement, KelPEndElement);
  stack_.push_back(startState_);
  expat_ = &expat;
  // Until the load is over the project is the parser's alone, a failed load
  // hands out nothing, and the commands that build it can't be undone (the
  // history records none of them). So nothing of the load is
  // journaled: no command gets the journal of its own that a user's edit
  // gets, whose states cost more than the edit, and no object keeps notes.
  const EditJournal::Scope journal(EditJournal::discarding());
  const std::uint64_t total = progress_ ? remainingSize(in) : 0;
  std::uint64_t read = 0;
  try {
    for (;;) {
      void* buffer = XML_GetBuffer(expat.parser, kBlockSize);
      if (!buffer) {
        throw KelMediaLibException("unable to get parser buffer.");
      }
      in.read(static_cast<char*>(buffer), kBlockSize);
      if (in.bad()) {
        throw IOException("bad read from parsing file.");
      }
      const std::streamsize count = in.gcount();
      read += static_cast<std::uint64_t>(count);
      const bool last = in.eof();
      if (XML_ParseBuffer(expat.parser, static_cast<int>(count), last) == XML_STATUS_ERROR) {
        if (pending_) {
          std::rethrow_exception(pending_);
        }
        const XML_Error code = XML_GetErrorCode(expat.parser);
        throw ParserException("ErrCode:" + std::to_string(static_cast<int>(code)) +
                                  " ErrString:" + XML_ErrorString(code),
                              0, 0);
      }
      if (progress_ && !progress_(read, total)) {
        throw LoadCancelledException();
      }
      if (last) {
        break;
      }
    }
  } catch (const ParserException& exception) {
    expat_ = nullptr;
    // A state's fault already carries the position of its element.
    if (exception.line != 0 || exception.column != 0) {
      throw;
    }
    throw positioned(exception, expat.parser);
  } catch (...) {
    expat_ = nullptr;
    throw;
  }
  expat_ = nullptr;
  clearHistory(startState_->project());
  return startState_->project();
}

boost::shared_ptr<Project> Parser::parseProject(std::string path) {
  std::ifstream in(path, std::ios::in | std::ios::binary);
  if (!in) {
    throw IOException("unable to open file \"" + path + "\".");
  }
  boost::shared_ptr<Project> project = parseProject(in);
  in.close();
  return project;
}

std::string Parser::handleMissingFile(const std::string& path) {
  if (!missingFileHandler_) {
    throw ParserException("Missing File:" + path, 0, 0);
  }
  return missingFileHandler_->handleMissingFile(path);
}

bool Parser::handleChangedFile(const std::string& path, const MediaFileStats* stored,
                               const MediaFileStats* current) {
  if (!changedFileHandler_) {
    throw ParserException("Changed File:" + path, 0, 0);
  }
  return changedFileHandler_->handleChangedFile(path, stored, current);
}

void Parser::startElement(const char* name, const char** atts) {
  if (pending_) {
    return;
  }
  try {
    const boost::shared_ptr<ParserState> top = stack_.back();
    stack_.push_back(boost::shared_ptr<ParserState>(top->startElement(name, atts)));
  } catch (...) {
    fail();
  }
}

void Parser::endElement(const char* name) {
  if (pending_) {
    return;
  }
  try {
    stack_.back()->endElement(name);
    stack_.pop_back();
  } catch (...) {
    fail();
  }
}

void Parser::fail() {
  XML_Parser parser = expat_->parser;
  try {
    throw;
  } catch (const ParserException& exception) {
    pending_ = std::make_exception_ptr(positioned(exception, parser));
  } catch (...) {
    pending_ = std::current_exception();
  }
  XML_StopParser(parser, XML_FALSE);
}

}  // namespace KelMediaLib
