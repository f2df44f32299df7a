// The fault regime. Everything below the windows throws a Fault or returns; procedures that must go on past a failing
// statement wrap that statement in a FaultTrap, which writes one line to error.log and lets the next statement run.
// The checked helpers below throw where a 16-bit, bounds-checked run time would have: the conditions stay visible.
#pragma once

#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kestrava::platform {

/// The one exception type of the station: a classic run-time fault with its number and text.
class Fault : public std::runtime_error {
 public:
  Fault(int number, const std::string& text) : std::runtime_error(text), number_(number) {}
  int Number() const { return number_; }

  static Fault InvalidCall() { return {5, "Invalid procedure call or argument"}; }
  static Fault Overflow() { return {6, "Overflow"}; }
  static Fault SubscriptOutOfRange() { return {9, "Subscript out of range"}; }
  static Fault DivisionByZero() { return {11, "Division by zero"}; }
  static Fault TypeMismatch() { return {13, "Type mismatch"}; }
  static Fault FileNotFound() { return {53, "File not found"}; }
  static Fault DeviceError() { return {57, "Device I/O error"}; }
  static Fault DiskFull() { return {61, "Disk full"}; }
  static Fault InputPastEnd() { return {62, "Input past end of file"}; }
  static Fault PermissionDenied() { return {70, "Permission denied"}; }
  static Fault DiskNotReady() { return {71, "Disk not ready"}; }
  static Fault PathFileAccess() { return {75, "Path/File access error"}; }
  static Fault PathNotFound() { return {76, "Path not found"}; }
  static Fault ObjectNotSet() { return {91, "Object variable not set"}; }
  static Fault ControlAlreadyLoaded() { return {360, "Object already loaded"}; }
  static Fault Automation(const std::string& why) { return {440, "Automation error: " + why}; }
  static Fault InvalidPicture() { return {481, "Invalid picture"}; }

 private:
  int number_;
};

/// Writes one line to error.log through the fault log door: version, date, time, message, trap name.
/// Before the user's folder is known lines are held; they are written when it is. Throws nothing: a log that cannot
/// be written ends the attempt, as a retry of the same statement would never end.
void ErrorTrap(std::string_view message, std::string_view trapName);

/// "Log it with the procedure's name and go on with the next statement."
/// @code FaultTrap trap{"MapView CalcFootprint"}; trap([&] { b = ArcCos(x); }); @endcode
class FaultTrap {
 public:
  /// @param trapName  stays alive as long as the trap: a literal
  explicit constexpr FaultTrap(std::string_view trapName) : trapName_(trapName) {}

  /// Runs one statement. @return false if it failed and was logged
  template <class Statement>
  bool operator()(Statement&& statement) const {
    try {
      statement();
      return true;
    } catch (const Fault& fault) {
      ErrorTrap(fault.what(), trapName_);
      return false;
    }
  }

 private:
  std::string_view trapName_;
};

/// table[i], or "Subscript out of range".
template <class Table, class Index>
decltype(auto) At(Table&& table, Index i) {
  if (i < 0 || static_cast<std::size_t>(i) >= table.size()) throw Fault::SubscriptOutOfRange();
  return table[static_cast<std::size_t>(i)];
}

/// a / b, or "Division by zero" ("Overflow" for 0 / 0, as the run time has it).
inline double Divide(double a, double b) {
  if (b == 0) throw a == 0 ? Fault::Overflow() : Fault::DivisionByZero();
  return a / b;
}

/// a modulo b with the sign of a, or "Division by zero".
inline long Modulo(long a, long b) {
  if (b == 0) throw Fault::DivisionByZero();
  return b == -1 ? 0 : a % b;
}

/// Nearest whole number, a tie going to the even one: the rounding of every conversion to a whole number.
inline double RoundHalfEven(double x) {
  return std::nearbyint(x);
}

/// Conversion to a 16-bit field: rounds a tie to even, "Overflow" outside -32768..32767.
inline std::int16_t ToInt16(double x) {
  const double rounded = RoundHalfEven(x);
  if (!(rounded >= -32768 && rounded <= 32767)) throw Fault::Overflow();
  return static_cast<std::int16_t>(rounded);
}

/// Conversion to a 32-bit field: rounds a tie to even, "Overflow" outside the range.
inline std::int32_t ToInt32(double x) {
  const double rounded = RoundHalfEven(x);
  if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) throw Fault::Overflow();
  return static_cast<std::int32_t>(rounded);
}

}  // namespace kestrava::platform
