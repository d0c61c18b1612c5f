// The readers of numbers in project file attributes that skip the stream
// must take exactly the texts the stream reader takes, to the same bits, and
// refuse the others.

#include "media/parser/AttributeCast.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>

namespace {

using namespace KelMediaLib;

// Signs and blanks, integer bounds, decimals, exponents, words and hex,
// float and double bounds.
// clang-format off
const char* const kTexts[] = {
    "0", "-0", "+5", "+-5", "-+5", "+", "-", "", " 5", "5 ", "007", "12a", "0x10", "1,5",
    "9223372036854775807", "9223372036854775808", "-9223372036854775808", "-9223372036854775809",
    "2147483647", "2147483648", "-2147483649",
    "1.5", "+.5", ".5", "-.5", "5.", ".", "+.",
    "1e5", "1E-5", "1.e5", "1e", "1e+", "e5", "1e5e5", "1.5.3",
    "inf", "-inf", "nan", "infinity", "0x1p3",
    "1e400", "-1e400", "1e-400", "4.9e-324", "2.5e-324", "3.4028235e38", "3.5e38", "1e-46", "0.1",
    "0.15", "123456789012345678901234567890", "-0.0", "1.7976931348623157e308",
    "1.7976931348623159e308"};
// clang-format on

// Whether `read` takes the text, and what it makes of it.
template <class T>
std::pair<bool, T> attempt(T (*read)(const std::string&), const std::string& text) {
  try {
    return {true, read(text)};
  } catch (const boost::bad_lexical_cast&) {
    return {false, T{}};
  }
}

template <class T>
void expectSameAsStream(const std::string& text) {
  const std::pair<bool, T> byStream = attempt<T>(&attributecast::byStream<T>, text);
  const std::pair<bool, T> fast = attempt<T>(&attributeCast<T>, text);
  ASSERT_EQ(byStream.first, fast.first) << '"' << text << "\" as " << typeid(T).name();
  if (byStream.first) {
    EXPECT_EQ(0, std::memcmp(&byStream.second, &fast.second, sizeof(T)))
        << '"' << text << "\" as " << typeid(T).name() << ": " << byStream.second << " vs "
        << fast.second;
  }
}

TEST(AttributeCastTest, NumbersAreReadAsTheStreamReaderReadsThem) {
  for (const char* text : kTexts) {
    expectSameAsStream<long long>(text);
    expectSameAsStream<int>(text);
    expectSameAsStream<unsigned int>(text);
    expectSameAsStream<double>(text);
    expectSameAsStream<float>(text);
  }
}

TEST(AttributeCastTest, ReadsTheUsualFormsAndRefusesTheRest) {
  EXPECT_EQ(-42, attributeCast<long long>("-42"));
  EXPECT_EQ(7, attributeCast<int>("+7"));
  EXPECT_EQ(0.25, attributeCast<double>("+.25"));
  EXPECT_EQ(1.5f, attributeCast<float>("15e-1"));
  for (const char* refused : {"", " 1", "1 ", "inf", "nan", "0x1p3", "1e400"}) {
    EXPECT_THROW(attributeCast<double>(refused), boost::bad_lexical_cast) << refused;
  }
  EXPECT_THROW(attributeCast<int>("2147483648"), boost::bad_lexical_cast);
  EXPECT_THROW(attributeCast<long long>("1.0"), boost::bad_lexical_cast);
}

}  // namespace
