#pragma once

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KelMediaLib {

class EdgeModification;

/// Something with transitions at its two edges (a media). Each edge has a
/// length, in timeline edit units measured inwards from that end of the
/// media, and an ordered list of modifications, shared and immutable.
/// Edits are the project's: they take no lock. Each change calls
/// `edgesChanged` once.
class EdgeModifiable {
 public:
  EdgeModifiable();
  /// A copy has the edge lengths but no modifications: a cloning owner puts
  /// in copies aimed at its own parameters.
  EdgeModifiable(const EdgeModifiable& other);
  EdgeModifiable& operator=(const EdgeModifiable&) = delete;
  virtual ~EdgeModifiable();

  long long leftEdgeLength() const { return leftLength_; }
  long long rightEdgeLength() const { return rightLength_; }

  /// A new list holding the left edge's modifications in order.
  std::vector<boost::shared_ptr<const EdgeModification>> leftEdgeModifications() const;
  std::vector<boost::shared_ptr<const EdgeModification>> rightEdgeModifications() const;

  /// Inserts before `index`; -1 or the list's size appends. Throws
  /// `KelMediaLibException` on a null modification or an index out of range.
  void insertLeftEdgeModification(boost::shared_ptr<const EdgeModification> modification,
                                  int index);
  void insertRightEdgeModification(boost::shared_ptr<const EdgeModification> modification,
                                   int index);
  /// Takes out and returns the modification at `index`; throws out of range.
  boost::shared_ptr<const EdgeModification> removeLeftEdgeModification(int index);
  boost::shared_ptr<const EdgeModification> removeRightEdgeModification(int index);
  /// Throws `KelMediaLibException` on a negative length.
  void setLeftEdgeLength(long long length);
  void setRightEdgeLength(long long length);

 protected:
  /// Told after each change of a length or a list.
  virtual void edgesChanged();

 private:
  typedef std::vector<boost::shared_ptr<const EdgeModification>> List;

  void insertInto(List& list, boost::shared_ptr<const EdgeModification> modification, int index,
                  const char* side);
  boost::shared_ptr<const EdgeModification> removeFrom(List& list, int index, const char* side);
  void setLength(long long& length, long long value, const char* side);

  long long leftLength_;
  long long rightLength_;
  List left_;
  List right_;
};

}  // namespace KelMediaLib
