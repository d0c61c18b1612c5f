#pragma once

#include <iosfwd>
#include <string>
#include <cstddef>
#include <utility>
#include <vector>

namespace KelMediaLib {

class XMLIdentified;

/// Something that writes itself as one XML element of a project file.
///
/// `toXML` writes `<name attributes extra>`, the body one level deeper, and the
/// end tag; an element whose class says it has no body is closed with `/>`.
/// Subclasses supply the name, the attributes (separated by single blanks,
/// none before the first) and the body.
class XMLable {
 public:
  /// What a writer carries along: the stream written to, and the idents
  /// of the document.
  struct Options {
    explicit Options(std::ostream& stream) : out(stream) {}
    std::ostream& out;

    /// The "id" of `object` in this document. Objects are numbered from 1
    /// in the order in which the document first names them (as an element or
    /// from another element), so the text depends on the model alone: two
    /// writes of one model, or of the model read back, give the same bytes.
    unsigned int ident(const XMLIdentified& object);
    /// An ident that no object has, for an element that nothing names and
    /// whose object isn't there to be named (one written as it would be).
    unsigned int newIdent() { return ++named_; }
    /// Whether the document has named `object` so far.
    bool named(const XMLIdentified& object) const;

   private:
    typedef std::pair<const XMLIdentified*, unsigned int> Slot;  // null: free
    /// The slot of `object`, or the free one where it would go.
    std::size_t slotOf(const XMLIdentified* object) const;

    // Open addressing by address, half full at most: a project's document
    // names millions of objects, and a node of their own cost more than the
    // rest of the writing.
    std::vector<Slot> slots_;
    unsigned int named_ = 0;
    int shift_ = 64;
  };

  virtual ~XMLable() = default;

  /// Writes the whole element at the given depth. `extraAttributes`, if not
  /// empty, is written as it stands behind the element's own attributes and
  /// must begin with a blank.
  void toXML(Options& options, int indent, const std::string& extraAttributes) const;

  /// The indentation of an element at the given depth.
  static std::string genIndent(int depth);

  virtual void xmlName(Options& options) const = 0;
  virtual void xmlAttributes(Options& options) const;
  virtual void xmlBody(Options& options, int depth) const;

 protected:
  /// Whether the element has attributes of its own: without them no blank
  /// follows the name.
  virtual bool xmlHasAttributes() const { return true; }
  /// Whether the element has a body: without one it is written as `<name ... />`.
  virtual bool xmlHasBody() const { return true; }
};

}  // namespace KelMediaLib
