#include "core/IOException.h"
#include "core/KelMediaLibException.h"
#include "core/ParserException.h"
#include "core/ValueException.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>

using KelMediaLib::IOException;
using KelMediaLib::KelMediaLibException;
using KelMediaLib::ParserException;
using KelMediaLib::ValueException;

namespace {

TEST(ExceptionTest, ParserExceptionKeepsMessageAndTakesItsPositionLater) {
  ParserException e("Unexpected name \"Foo\" in Project", 0, 0);
  e.line = 3;
  e.column = 5;
  EXPECT_STREQ("Unexpected name \"Foo\" in Project", e.what());
  EXPECT_EQ("Unexpected name \"Foo\" in Project (line 3, column 5)", e.positionText());
  std::ostringstream out;
  out << e;
  EXPECT_EQ(e.positionText(), out.str());
}

// Every failure of the media model can be caught as one type, with its text.
TEST(ExceptionTest, AllAreCaughtAsMediaLibraryExceptionsWithTheirTexts) {
  const std::pair<std::function<void()>, const char*> cases[] = {
      {[] { throw ParserException("p", 1, 2); }, "p"},
      {[] { throw IOException("can't open \"a.xml\""); }, "IOException: can't open \"a.xml\""},
      {[] { throw ValueException<double>("v", 2.5); }, "v"},
  };
  for (const auto& c : cases) {
    try {
      c.first();
      ADD_FAILURE() << "nothing thrown";
    } catch (const KelMediaLibException& e) {
      EXPECT_STREQ(c.second, e.what());
    }
  }
}

}  // namespace
