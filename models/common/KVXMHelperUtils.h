#pragma once

#include <fstream>
#include <ios>
#include <string>
#include <string_view>
#include <vector>

/// Small functions that the whole engine uses. None of them reads the locale, and but for the strict
/// conversions none of them throws on any input.
namespace KVXMHelperUtils {

/// Decimal text of a whole number.
std::string ToString(int value);
/// The shortest text that reads back to the same number, without an exponent for magnitudes from 1e-4 to 1e7.
std::string ToString(float value);
std::string ToString(double value);

/// The number with exactly `digits` decimals, as "%.3f" writes it in the "C" locale: formatFixed(1.5, 3) is
/// "1.500".
std::string formatFixed(double value, unsigned int digits);

/// The longest leading number of a text after leading blanks, 0 if there is none. What is too large for the
/// type gives its largest (or smallest) value.
int s2i(std::string_view text);
/// As s2i, for decimal fractions with or without exponent. "inf" and "nan" count as numbers when they stand
/// as words of their own, so that whatever ToString wrote reads back.
float s2f(std::string_view text);

/// The number that is the whole text, without any blanks around it.
/// @throws std::invalid_argument if the text is anything else or does not fit.
int s2iStrict(std::string_view text);
/// As s2iStrict, for decimal fractions; "inf" and "nan" are refused.
float s2fStrict(std::string_view text);

/// Decimal text, right-aligned in a field of at least `width` characters: i2s(42, 5, '0') is "00042".
std::string i2s(int value, int width, char fill);

/// To `digits` decimals, halves away from zero. A half is what prints as one: ROUND(1.005f, 2) is 1.01f.
float ROUND(float value, unsigned int digits);
/// To `digits` decimals, toward larger values; a value that prints with no more decimals stays.
float ROUNDUP(float value, unsigned int digits);

/// Sum of the elements, saturating at the limits of the type.
int SUM(const std::vector<int>& values);
/// Sum of the elements, added up in double precision, so that the order of rows does not show.
float SUM(const std::vector<float>& values);

/// Removes repeated entries; the first of each stays where it is.
void UNIQUE(std::vector<std::string>& values);

/// Turns a name into the text shown on screen: "POWER_DESIGN" becomes "Power Design".
void convertToCamelString(std::string& text);
/// Removes every blank, tab and line end.
void removeWhiteSpaces(std::string& text);
/// Removes blanks, tabs and line ends at both ends, in front, or at the end.
void trim(std::string& text);
void ltrim(std::string& text);
void rtrim(std::string& text);

/// Well-formed UTF-8 without control characters but tab, line feed and return: what a file can hold.
bool isText(std::string_view text);

/// The first run of digits in a text: "BMEM36SDP" gives "36"; empty if there is none.
std::string getFirstNumericSubStr(std::string_view text);

/// Opens a file for as long as the object lives. A file that cannot be opened leaves the stream in a failed
/// state, which the caller tests; so does a path with an embedded NUL, which would name another file.
class FileOpener {
 public:
  FileOpener(const std::string& path, std::ios_base::openmode mode);
  FileOpener(const FileOpener&) = delete;
  FileOpener& operator=(const FileOpener&) = delete;

  std::fstream& get() { return m_stream; }

 private:
  std::fstream m_stream;  // closed by its destructor
};

}  // namespace KVXMHelperUtils
