#pragma once

#include "core/KelObject.h"

#include <istream>
#include <ostream>

namespace KelMediaLib {

/// A 4x4 homogeneous transform, row-major: `m[row][column]`, points as
/// column vectors.
class TransformMatrix : public KelObject {
 public:
  /// The identity.
  TransformMatrix();

  /// The identity.
  static TransformMatrix identity();

  /// The matrix product `*this * other` (apply `other` first).
  TransformMatrix operator*(const TransformMatrix& other) const;
  bool operator==(const TransformMatrix& other) const;
  bool operator!=(const TransformMatrix& other) const;

  double m[4][4];
};

/// Writes "(m00,m01,...,m33)", row by row, with numbers that read back bit
/// for bit.
std::ostream& operator<<(std::ostream& out, const TransformMatrix& matrix);
/// Reads the sixteen numbers written above; brackets and commas are checked,
/// and the matrix is only assigned when the whole form was read.
std::istream& operator>>(std::istream& in, TransformMatrix& matrix);
void writeXMLValue(std::ostream& out, const TransformMatrix& matrix);

}  // namespace KelMediaLib
