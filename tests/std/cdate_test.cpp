#include "qelcore/std/cdate.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/ctextparseexception.h"

using qstd::cDate;

namespace {

std::string str(const qstd::cAsciiString& s) { return s.c_str(); }

}  // namespace

TEST(Date, FieldsAreValidatedAgainstTheCalendar) {
  EXPECT_NO_THROW(cDate(2024, 2, 29));
  EXPECT_NO_THROW(cDate(2000, 2, 29));
  EXPECT_NO_THROW(cDate(1, 1, 1));
  EXPECT_NO_THROW(cDate(9999, 12, 31));
  EXPECT_THROW(cDate(2023, 2, 29), qstd::cOutOfRangeException);
  EXPECT_THROW(cDate(1900, 2, 29), qstd::cOutOfRangeException);
  EXPECT_THROW(cDate(2023, 4, 31), qstd::cOutOfRangeException);
  EXPECT_THROW(cDate(2023, 13, 1), qstd::cOutOfRangeException);
  EXPECT_THROW(cDate(2023, 0, 1), qstd::cOutOfRangeException);
  EXPECT_THROW(cDate(2023, 1, 0), qstd::cOutOfRangeException);
  EXPECT_THROW(cDate(0, 1, 1), qstd::cOutOfRangeException);
  EXPECT_THROW(cDate(10000, 1, 1), qstd::cOutOfRangeException);
  try {
    cDate(2023, 13, 1);
  } catch (const qstd::cOutOfRangeException& e) {
    EXPECT_EQ(e.errornousValue(), 13);
    EXPECT_EQ(e.minValue(), 1);
    EXPECT_EQ(e.maxValue(), 12);
  }
  EXPECT_EQ(cDate::daysInMonth(2023, 2), 28u);
  EXPECT_EQ(cDate::daysInMonth(2024, 2), 29u);
  EXPECT_FALSE(cDate::isValid(2023, 2, 29));
}

TEST(Date, DayCountsWeekdaysAndArithmetic) {
  EXPECT_EQ(cDate().toDays(), 0);
  EXPECT_EQ(cDate(2000, 3, 1).toDays(), 11017);
  EXPECT_EQ(cDate(1969, 12, 31).toDays(), -1);
  EXPECT_EQ(cDate(1, 1, 1).toDays(), -719162);
  EXPECT_EQ(cDate(9999, 12, 31).toDays(), 2932896);
  // Every day of four centuries survives the round trip through its count.
  for (long long d = cDate(1899, 1, 1).toDays(); d < cDate(2301, 1, 1).toDays(); ++d)
    ASSERT_EQ(cDate::fromDays(d).toDays(), d);
  EXPECT_THROW(cDate::fromDays(2932897), qstd::cOutOfRangeException);

  EXPECT_EQ(cDate(1970, 1, 1).dayOfWeek(), 4u);  // Thursday
  EXPECT_EQ(cDate(2024, 2, 29).dayOfWeek(), 4u);
  EXPECT_EQ(cDate(1969, 12, 28).dayOfWeek(), 7u);
  EXPECT_EQ(cDate(2024, 12, 31).dayOfYear(), 366u);
  EXPECT_EQ(cDate(2023, 3, 1).dayOfYear(), 60u);

  cDate d = cDate(2024, 2, 28).addDays(1);
  EXPECT_EQ(d, cDate(2024, 2, 29));
  EXPECT_EQ(cDate(2023, 12, 31).addDays(1), cDate(2024, 1, 1));
  EXPECT_EQ(cDate(2024, 3, 1).addDays(-1), cDate(2024, 2, 29));
  EXPECT_EQ(cDate(2024, 1, 1).daysTo(cDate(2025, 1, 1)), 366);
  EXPECT_TRUE(cDate(2024, 1, 31) < cDate(2024, 2, 1));
  EXPECT_TRUE(cDate(2023, 12, 31) < cDate(2024, 1, 1));
}

TEST(Date, TextFormAndParsing) {
  EXPECT_EQ(str(cDate(2024, 2, 9).toString()), "2024-02-09");
  EXPECT_EQ(str(cDate(7, 1, 1).toString()), "0007-01-01");
  EXPECT_EQ(cDate::fromString("2024-02-29"), cDate(2024, 2, 29));
  for (const char* bad : {"2023-02-29", "2024-2-29", "2024-02-29x", "2024/02/29", "", "0000-01-01", "2024-13-01"})
    EXPECT_THROW(cDate::fromString(bad), qstd::cTextParseException) << bad;
  try {
    cDate::fromString("2024-02/29");
  } catch (const qstd::cTextParseException& e) {
    EXPECT_EQ(e.column(), 8u);
  }
}
