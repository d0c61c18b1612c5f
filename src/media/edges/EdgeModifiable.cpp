#include "media/edges/EdgeModifiable.h"

#include "core/KelMediaLibException.h"
#include "media/edges/EdgeModification.h"

#include <string>

namespace KelMediaLib {

EdgeModifiable::EdgeModifiable() : leftLength_(0), rightLength_(0) {}

EdgeModifiable::EdgeModifiable(const EdgeModifiable& other)
    : leftLength_(other.leftLength_), rightLength_(other.rightLength_) {}

EdgeModifiable::~EdgeModifiable() = default;

std::vector<boost::shared_ptr<const EdgeModification>> EdgeModifiable::leftEdgeModifications()
    const {
  return left_;
}

std::vector<boost::shared_ptr<const EdgeModification>> EdgeModifiable::rightEdgeModifications()
    const {
  return right_;
}

void EdgeModifiable::insertLeftEdgeModification(
    boost::shared_ptr<const EdgeModification> modification, int index) {
  insertInto(left_, modification, index, "left");
}

void EdgeModifiable::insertRightEdgeModification(
    boost::shared_ptr<const EdgeModification> modification, int index) {
  insertInto(right_, modification, index, "right");
}

boost::shared_ptr<const EdgeModification> EdgeModifiable::removeLeftEdgeModification(int index) {
  return removeFrom(left_, index, "left");
}

boost::shared_ptr<const EdgeModification> EdgeModifiable::removeRightEdgeModification(int index) {
  return removeFrom(right_, index, "right");
}

void EdgeModifiable::setLeftEdgeLength(long long length) { setLength(leftLength_, length, "left"); }

void EdgeModifiable::setRightEdgeLength(long long length) {
  setLength(rightLength_, length, "right");
}

void EdgeModifiable::edgesChanged() {}

void EdgeModifiable::insertInto(List& list, boost::shared_ptr<const EdgeModification> modification,
                                int index, const char* side) {
  if (!modification) {
    throw KelMediaLibException(std::string("can't put a null modification on the ") + side +
                               " edge");
  }
  const int size = static_cast<int>(list.size());
  if (index == -1) {
    index = size;
  }
  if (index < 0 || index > size) {
    throw KelMediaLibException(std::string("can't put a modification at index ") +
                               std::to_string(index) + " of the " + side + " edge, which has " +
                               std::to_string(size));
  }
  list.insert(list.begin() + index, modification);
  edgesChanged();
}

boost::shared_ptr<const EdgeModification> EdgeModifiable::removeFrom(List& list, int index,
                                                                     const char* side) {
  if (index < 0 || index >= static_cast<int>(list.size())) {
    throw KelMediaLibException(std::string("the ") + side + " edge has no modification at index " +
                               std::to_string(index) + "; it has " + std::to_string(list.size()));
  }
  boost::shared_ptr<const EdgeModification> removed = list[static_cast<std::size_t>(index)];
  list.erase(list.begin() + index);
  edgesChanged();
  return removed;
}

void EdgeModifiable::setLength(long long& length, long long value, const char* side) {
  if (value < 0) {
    throw KelMediaLibException(std::string("the ") + side + " edge can't have the length " +
                               std::to_string(value));
  }
  length = value;
  edgesChanged();
}

}  // namespace KelMediaLib
