#include "values/TransformMatrix.h"

#include "values/ValueText.h"

namespace KelMediaLib {

TransformMatrix::TransformMatrix() {
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      m[row][column] = row == column ? 1.0 : 0.0;
    }
  }
}

TransformMatrix TransformMatrix::identity() {
  return TransformMatrix();
}

TransformMatrix TransformMatrix::operator*(const TransformMatrix& other) const {
  TransformMatrix product;
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      double sum = 0.0;
      for (int k = 0; k < 4; ++k) {
        sum += m[row][k] * other.m[k][column];
      }
      product.m[row][column] = sum;
    }
  }
  return product;
}

bool TransformMatrix::operator==(const TransformMatrix& other) const {
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      if (m[row][column] != other.m[row][column]) {
        return false;
      }
    }
  }
  return true;
}

bool TransformMatrix::operator!=(const TransformMatrix& other) const {
  return !(*this == other);
}

std::ostream& operator<<(std::ostream& out, const TransformMatrix& matrix) {
  double values[16];
  for (int i = 0; i < 16; ++i) {
    values[i] = matrix.m[i / 4][i % 4];
  }
  writeTuple(out, values, 16);
  return out;
}

std::istream& operator>>(std::istream& in, TransformMatrix& matrix) {
  double values[16];
  if (readTuple(in, values, 16)) {
    for (int i = 0; i < 16; ++i) {
      matrix.m[i / 4][i % 4] = values[i];
    }
  }
  return in;
}

void writeXMLValue(std::ostream& out, const TransformMatrix& matrix) {
  out << matrix;
}

}  // namespace KelMediaLib
