#pragma once

#include <exception>
#include <string>

namespace ZoomdriftNS {

/// Why an engine can't work on the metadata that it was given.
enum ZDERR_CODES {
  /// No recording region, or one without area.
  ZDERR_NO_RECORDING_REGION = 1,
  /// A target (canvas) width or height of 0 or less.
  ZDERR_EMPTY_TARGET_SIZE,
  /// A time scale that isn't a finite number above 0.
  ZDERR_BAD_TIME_SCALE,
  /// A negative fade duration.
  ZDERR_BAD_FADE_DURATION,
  /// An engine setting out of its range.
  ZDERR_BAD_SETTING,
};

/// The failure of an automatic zoom engine: a text and a code.
class ZoomdriftException : public std::exception {
 public:
  ZoomdriftException(std::string const& message, ZDERR_CODES const& errorCode);

  const char* what() const noexcept override;
  ZDERR_CODES errorCode() const { return errorCode_; }

 private:
  std::string message_;
  ZDERR_CODES errorCode_;
};

}  // namespace ZoomdriftNS
