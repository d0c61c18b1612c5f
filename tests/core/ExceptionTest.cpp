#include "core/IOException.h"
#include "core/KelMediaLibException.h"
#include "core/ParserException.h"
#include "core/ValueException.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <exception>
#include <functional>
#include <sstream>
#include <string>

using KelMediaLib::IOException;
using KelMediaLib::KelMediaLibException;
using KelMediaLib::ParserException;
using KelMediaLib::ValueException;

namespace {

TEST(ExceptionTest, ParserExceptionKeepsMessageAndTakesItsPositionLater) {
  ParserException e("Unexpected name \"Foo\" in Project", 0, 0);
  EXPECT_STREQ("Unexpected name \"Foo\" in Project", e.what());
  EXPECT_EQ("Unexpected name \"Foo\" in Project (line 0, column 0)", e.positionText());

  e.line = 3;
  e.column = 5;
  EXPECT_STREQ("Unexpected name \"Foo\" in Project", e.what());
  EXPECT_EQ("Unexpected name \"Foo\" in Project (line 3, column 5)", e.positionText());
  std::ostringstream out;
  out << e;
  EXPECT_EQ(e.positionText(), out.str());
}

TEST(ExceptionTest, IOExceptionTextStartsWithItsPrefix) {
  const IOException e("can't open \"a.xml\"");
  EXPECT_STREQ("IOException: can't open \"a.xml\"", e.what());
}

TEST(ExceptionTest, ValueExceptionCarriesItsValue) {
  const ValueException<double> number("bad number", 2.5);
  EXPECT_STREQ("bad number", number.what());
  EXPECT_EQ(2.5, number.value);

  // A shared pointer is shared, not deep-copied.
  boost::shared_ptr<int> pointer = boost::make_shared<int>(4);
  const ValueException<boost::shared_ptr<int>> shared("bad object", pointer);
  EXPECT_EQ(pointer.get(), shared.value.get());
}

// Every failure of the media model can be caught as one type, and as a
// standard exception, with its text intact.
TEST(ExceptionTest, AllAreMediaLibraryAndStandardExceptions) {
  const auto catchAsBase = [](const std::function<void()>& raise) {
    try {
      raise();
    } catch (const KelMediaLibException& e) {
      return std::string(e.what());
    }
    return std::string("not caught");
  };
  EXPECT_EQ("p", catchAsBase([] { throw ParserException("p", 1, 2); }));
  EXPECT_EQ("IOException: i", catchAsBase([] { throw IOException("i"); }));
  EXPECT_EQ("v", catchAsBase([] { throw ValueException<int>("v", 1); }));

  try {
    throw ParserException("parse", 1, 1);
  } catch (const std::exception& e) {
    EXPECT_STREQ("parse", e.what());
  }
}

}  // namespace
