/// \class qstd::cTime
/// A point in time or a duration: an unsigned 64-bit count of microseconds.
///
/// Points in time count from 1970-01-01 00:00:00 UTC. The arithmetic is exact
/// integer arithmetic with two deliberate asymmetries: adding two times
/// saturates while adding an integer wraps, and subtracting two times gives the
/// distance between them (never wraps) while subtracting an integer wraps.
#ifndef QELCORE_STD_CTIME_H
#define QELCORE_STD_CTIME_H

#include "qelcore/qelexport.h"

namespace qstd {

class QEL_EXPORT cTime {
public:
  /// The current time of the system's UTC clock.
  cTime();
  /// A count of microseconds.
  explicit cTime(unsigned long long microseconds) : mullTime(microseconds) {}
  /// Seconds and microseconds.
  cTime(unsigned int seconds, unsigned int microseconds)
      : mullTime(static_cast<unsigned long long>(seconds) * 1000000ull + microseconds) {}
  /// hours * 3600 is formed in 32 bits, everything after it in 64 bits.
  cTime(unsigned int hours, unsigned int minutes, unsigned int seconds, unsigned int microseconds)
      : mullTime((static_cast<unsigned long long>(hours * 3600u) + static_cast<unsigned long long>(minutes) * 60ull +
                  seconds) *
                     1000000ull +
                 microseconds) {}

  /// The count of microseconds.
  unsigned long long get() const { return mullTime; }
  /// Sets the count of microseconds.
  void set(unsigned long long microseconds) { mullTime = microseconds; }
  /// Exchanges the two counts.
  void swap(cTime& other) {
    unsigned long long t = mullTime;
    mullTime = other.mullTime;
    other.mullTime = t;
  }

  ///@{
  /// Whole units, truncated.
  unsigned long long toNSec() const { return mullTime * 1000ull; }
  unsigned long long toMSec() const { return mullTime / 1000ull; }
  unsigned long long toSec() const { return mullTime / 1000000ull; }
  unsigned long long toMin() const { return toSec() / 60ull; }
  unsigned long long toHour() const { return toMin() / 60ull; }
  ///@}

  ///@{
  /// Clock fields of the count.
  unsigned int usec() const { return static_cast<unsigned int>(mullTime % 1000000ull); }
  unsigned int msec() const { return static_cast<unsigned int>(toMSec() % 1000ull); }
  unsigned int sec() const { return static_cast<unsigned int>(toSec() % 60ull); }
  unsigned int minutes() const { return static_cast<unsigned int>(toMin() % 60ull); }
  unsigned int hour() const { return static_cast<unsigned int>(toHour() % 24ull); }
  ///@}

  /// Saturates at the largest value.
  cTime operator+(const cTime& other) const {
    unsigned long long sum = mullTime + other.mullTime;
    return cTime(sum < mullTime ? ~0ull : sum);
  }
  /// Wraps.
  cTime operator+(long long value) const { return cTime(mullTime + static_cast<unsigned long long>(value)); }
  /// The distance between the two, whichever is larger.
  cTime operator-(const cTime& other) const {
    return cTime(mullTime >= other.mullTime ? mullTime - other.mullTime : other.mullTime - mullTime);
  }
  /// Wraps.
  cTime operator-(long long value) const { return cTime(mullTime - static_cast<unsigned long long>(value)); }

  ///@{
  /// Assign the result of the operator above (saturating, distance or wrapping alike).
  cTime& operator+=(const cTime& other) { return *this = *this + other; }
  cTime& operator+=(long long value) { return *this = *this + value; }
  cTime& operator-=(const cTime& other) { return *this = *this - other; }
  cTime& operator-=(long long value) { return *this = *this - value; }
  ///@}

  ///@{
  /// Compare the counts.
  bool operator==(const cTime& other) const { return mullTime == other.mullTime; }
  bool operator!=(const cTime& other) const { return mullTime != other.mullTime; }
  bool operator<(const cTime& other) const { return mullTime < other.mullTime; }
  bool operator>(const cTime& other) const { return mullTime > other.mullTime; }
  bool operator<=(const cTime& other) const { return mullTime <= other.mullTime; }
  bool operator>=(const cTime& other) const { return mullTime >= other.mullTime; }
  ///@}

  /// The duration from this time to now, as the system clock measures it.
  cTime diff() const;

private:
  unsigned long long mullTime;
};

}  // namespace qstd

#endif
