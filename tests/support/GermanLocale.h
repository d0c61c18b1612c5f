#pragma once

#include <locale>
#include <string>

namespace testsupport {

/// German number punctuation ("1.234,5"), with no system locale needed.
struct GermanPunctuation : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

/// Makes German number punctuation the global locale for as long as it
/// lives: streams made meanwhile print 1234.5 as "1.234,5".
class GermanLocale {
 public:
  GermanLocale()
      : previous_(std::locale::global(std::locale(std::locale::classic(), new GermanPunctuation))) {
  }
  ~GermanLocale() { std::locale::global(previous_); }
  GermanLocale(const GermanLocale&) = delete;
  GermanLocale& operator=(const GermanLocale&) = delete;

 private:
  std::locale previous_;
};

}  // namespace testsupport
