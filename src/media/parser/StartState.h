#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Project;

/// The state below the document's root element: it knows the root and
/// keeps what the document built.
class StartState : public ParserState {
 public:
  using ParserState::ParserState;
  /// The project built so far; null until the document's "Project" element.
  virtual boost::shared_ptr<Project> project() const = 0;
};

}  // namespace KelMediaLib
