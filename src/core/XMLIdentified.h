#pragma once

namespace KelMediaLib {

/// Gives each object a process-wide unique number, written as the "id" of its
/// element in a project file. A copy keeps the number of its source: classes
/// whose copies are distinct objects in a file (a cloned media) initialise
/// this base afresh in their copy constructor. Thread-safe.
class XMLIdentified {
 public:
  XMLIdentified();
  XMLIdentified(const XMLIdentified&) = default;
  XMLIdentified& operator=(const XMLIdentified&) = default;
  virtual ~XMLIdentified();

  unsigned int xmlIdent() const { return ident_; }

 private:
  unsigned int ident_;
};

}  // namespace KelMediaLib
