// The reader's table of idents: whatever order the idents of a file come in,
// repeated or not, each lookup finds the last object entered under it, and
// an ident never entered is the reader's own exception.

#include "media/parser/SymbolTable.h"
#include "media/parser/SymbolTableImpl.h"

#include "core/ThreadSafe.h"
#include "core/ValueException.h"
#include "media/timeline/Track.h"
#include "values/Parameter.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace KelMediaLib;

TEST(SymbolTableTest, FindsTheLastEntryUnderEachIdentInAnyOrder) {
  const auto project = boost::make_shared<ThreadSafe>();
  std::mt19937 random(7);
  const struct {
    const char* order;
    std::vector<unsigned int> idents;
  } cases[] = {{"ascending", {1, 2, 3, 5, 8, 13}},
               {"descending", {13, 8, 5, 3, 2, 1}},
               {"repeated", {4, 4, 2, 4, 2, 9, 9}},
               {"the largest first", {4294967295u, 0, 7, 4294967295u}},
               {"ascending with strays", {10, 20, 15, 30, 5, 40, 15, 20, 35}},
               {"shuffled", [&random] {
                  std::vector<unsigned int> idents;
                  for (unsigned int i = 0; i < 400; ++i) idents.push_back(random() % 300);
                  return idents;
                }()}};
  for (const auto& c : cases) {
    SymbolTable table;
    std::map<unsigned int, boost::shared_ptr<const Parameter<double>>> expected;
    for (const unsigned int ident : c.idents) {
      const auto parameter = Parameter<double>::create(project, std::to_string(ident), 0.0);
      table.addParameterSymbol(ident, parameter);
      expected[ident] = parameter;
    }
    for (const unsigned int ident : {0u, 6u, 14u, 299u, 311u, 4294967294u}) {
      if (expected.count(ident) == 0) {
        EXPECT_THROW(table.symbolForIdent<Parameter<double>>(ident), ValueException<unsigned int>)
            << c.order << ", ident " << ident;
      }
    }
    for (const auto& entry : expected) {
      EXPECT_EQ(entry.second, table.symbolForIdent<Parameter<double>>(entry.first)) << c.order;
    }
  }
}

TEST(SymbolTableTest, ForgetsParametersOnly) {
  const auto project = boost::make_shared<ThreadSafe>();
  SymbolTable table;
  const auto before = Parameter<double>::create(project, "before", 0.0);
  table.addParameterSymbol(3, before);
  table.addSymbol(4, boost::shared_ptr<const Track>());
  table.forgetParameters();
  EXPECT_THROW(table.symbolForIdent<Parameter<double>>(3), ValueException<unsigned int>);
  const auto after = Parameter<double>::create(project, "after", 0.0);
  table.addParameterSymbol(2, after);
  EXPECT_EQ(after, table.symbolForIdent<Parameter<double>>(2));
  EXPECT_NO_THROW(table.symbolForIdent<Track>(4));
}

}  // namespace
