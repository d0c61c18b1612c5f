#include "core/EditRateConversion.h"

#include "core/KelMediaLibException.h"
#include "core/XMLText.h"

#include <boost/multiprecision/cpp_int.hpp>

#include <cmath>
#include <limits>
#include <sstream>
#include <string>

namespace KelMediaLib {

namespace {

using boost::multiprecision::cpp_int;

std::string rateText(const EditRate& rate) {
  return std::to_string(rate.numerator()) + "/" + std::to_string(rate.denominator());
}

void requireRate(const EditRate& rate, const std::string& what) {
  if (rate.numerator() == 0) {
    throw KelMediaLibException("can't convert " + what + ": the rate " + rateText(rate) +
                               " has no units in a second");
  }
}

// numerator / denominator (denominator > 0) to the nearest whole number,
// halves away from zero; false when that doesn't fit in 64 bits.
bool roundQuotient(const cpp_int& numerator, const cpp_int& denominator, long long& result) {
  cpp_int quotient;
  cpp_int remainder;
  divide_qr(numerator < 0 ? cpp_int(-numerator) : numerator, denominator, quotient, remainder);
  if (2 * remainder >= denominator) {
    ++quotient;
  }
  if (numerator < 0) {
    quotient = -quotient;
  }
  if (quotient < std::numeric_limits<long long>::min() ||
      quotient > std::numeric_limits<long long>::max()) {
    return false;
  }
  result = quotient.convert_to<long long>();
  return true;
}

KelMediaLibException tooLarge(const std::string& what, const EditRate& rate) {
  return KelMediaLibException("can't convert " + what + " to units of " + rateText(rate) +
                              ": the result doesn't fit in a 64-bit count");
}

std::string secondsText(double seconds) {
  std::ostringstream out;
  writeXMLValue(out, seconds);
  return out.str() + " s";
}

}  // namespace

long long rescaleEditUnits(long long count, const EditRate& from, const EditRate& to) {
  const std::string what = std::to_string(count) + " units of " + rateText(from);
  requireRate(from, what);
  requireRate(to, what);
  // count * (to.num / to.den) / (from.num / from.den)
  const cpp_int numerator = cpp_int(count) * to.numerator() * from.denominator();
  const cpp_int denominator = cpp_int(to.denominator()) * from.numerator();
  long long result = 0;
  if (!roundQuotient(numerator, denominator, result)) {
    throw tooLarge(what, to);
  }
  return result;
}

long long secondsToEditUnits(double seconds, const EditRate& rate) {
  if (!std::isfinite(seconds)) {
    throw KelMediaLibException("can't convert " + secondsText(seconds) +
                               " to edit units: the time isn't a finite number");
  }
  requireRate(rate, secondsText(seconds));
  // seconds == mantissa * 2^exponent exactly, the mantissa a whole number.
  int exponent = 0;
  const double fraction = std::frexp(seconds, &exponent);
  const int digits = std::numeric_limits<double>::digits;
  const auto mantissa = static_cast<long long>(std::ldexp(fraction, digits));
  exponent -= digits;
  cpp_int numerator = cpp_int(mantissa) * rate.numerator();
  cpp_int denominator = rate.denominator();
  if (exponent >= 0) {
    numerator <<= exponent;
  } else {
    denominator <<= -exponent;
  }
  long long result = 0;
  if (!roundQuotient(numerator, denominator, result)) {
    throw tooLarge(secondsText(seconds), rate);
  }
  return result;
}

}  // namespace KelMediaLib
