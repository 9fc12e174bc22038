#pragma once

#include <TEVSystemLib/TEVSystemExport.h>
#include <TEVSystemLib/system/TEVSysCnst.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace TAMO::TEV::System::Util {

// Operations on zero-terminated 8-bit text.
//
// Ownership: what comes back through char**, wchar_t** or char**& is a new allocation that the
// caller gives back through the Delete functions below. An output pointer is overwritten, never
// freed, so a buffer that it still held is lost; MemCopyTrimmedString alone releases it on failure.
// On failure an output pointer is null unless the function says that it is left untouched. Without
// an output (null) nothing is done and the result is false or 0, unless an exception is named.
//
// Errors: functions report failure by their result and let no exception out, except where one is
// named. Functions that name a std::invalid_argument also throw std::runtime_error: "Failed to
// allocate enough memory to perform requested operation." when memory is exhausted, "Internal
// system errors encountered." or "Exception caught while carrying out requested operation." for the
// rest.
//
// Letters and blanks are those of ASCII whatever the locale; a blank is a space, tab, line feed,
// vertical tab, form feed or carriage return.
//
// Threads: no shared state; any number of threads may work on distinct data. What reads the
// process's locale says so.
class TEVSYSTEMLIB_API TEVUtilString {
 public:
    // Release: null is accepted; the caller's pointer becomes null.
    //
    // Releases a C string, a wide C string, an array of bytes.
    static void DeleteCString(char** text);
    static void DeleteWCharBuffer(wchar_t** text);
    static void DeleteUnsignedCharArray(unsigned char** array);
    // Frees the first `count` strings, no more than were allocated, then the array.
    static void DeleteCStringArray(char**& array, std::size_t count);
    // Frees the array only: its strings are borrowed.
    static void DeleteConstCStringArray(const char**& array, std::size_t count);

    // Allocation: exactly `count` zeroed elements; the result is `count` or 0. As in
    // TEVUtilMemory, exhausted memory throws std::bad_alloc.
    static std::size_t GetCharArray(std::size_t count, char** out);
    static std::size_t GetUnsignedCharArray(std::size_t count, unsigned char** out);
    static std::size_t GetCStringArray(char**& out, std::size_t count);
    static std::size_t GetConstCStringArray(const char**& out, std::size_t count);
    // A text of `count` times `fill`, terminated, in a buffer of count + 1 bytes; exhausted memory
    // gives 0 and null.
    static std::size_t GetCharArray(std::size_t count, char** out, char fill);

    // Copying
    //
    // Copies *length bytes when `length` is given and not 0, without a look at where `source`
    // ends; otherwise the whole text. A null source, or an empty one without a length, is
    // refused.
    static bool Copy(const char* const source, char** copy, std::size_t* length);
    // At most *length characters when given and not 0. An empty source gives an empty text and
    // true; a null one is refused.
    static bool Copy(const wchar_t* source, wchar_t** copy, std::size_t* length);
    // Appends a copy, which the caller releases from the vector, and then, when `deleteSource`
    // is true, releases `source`, which must be the library's, and nulls it. On failure nothing
    // is changed.
    static bool Copy(const char*& source, std::vector<char*>& out, bool deleteSource,
                     std::size_t* length);

    // Concatenation: the first form takes null as empty; the second gives null for a null input.
    static std::string Concat(const char* const first, const char* const second);
    static void Concat(const char* const first, const char* const second, char** out);

    // Comparison: bytewise, use the sign of the result; null orders before any text. Ignoring case,
    // texts end at their first NUL byte.
    static int Compare(const char* const first, const char* const second);
    static int Compare(bool ignoreCase, const char* const first, const char* const second);
    static int Compare(bool ignoreCase, std::string first, std::string second);

    // Searching: positions, -1 for not found.
    //
    // First occurrence of the substring. Throws std::invalid_argument "Input arguments cannot be
    // NULL or empty strings.".
    static int Find(const char* const text, const char* const sub);
    // First position of any character of the set. Throws std::invalid_argument "Input arguments
    // cannot be a nullptr or an empty string.".
    static int IndexOf(const char* const text, const char* const chars);
    // Last position of any character of the set. Throws std::invalid_argument "Input arguments
    // cannot be a nullptr or empty strings.".
    static int LastIndexOf(const char* const text, const char* const chars);
    // An empty `sub` is contained. Throws std::invalid_argument "Input arguments cannot be a
    // nullptr."
    static bool Contains(const char* const text, const char* const sub);
    // How often the character occurs; 0 for null.
    static std::size_t CharacterCount(char character, const char* const text);
    // True when each of the first *count characters of `text` (all of them without `count`, or when
    // it is 0) occurs in `allowed`. Null or empty gives false.
    static bool IsInRange(const char*& allowed, const char* const text, std::size_t* count);

    // Prefix and suffix: THE PATTERN COMES FIRST, the text second. False if either is empty.
    // Throw std::invalid_argument "Input arguments cannot be NULL." (StartWith), "Input arguments
    // cannot be a nullptr." (EndWith).
    static bool StartWith(const char* const prefix, const char* const text);
    static bool StartWith(bool ignoreCase, const char* const prefix, const char* const text);
    static bool EndWith(const char* const suffix, const char* const text);
    static bool EndWith(bool ignoreCase, const char* const suffix, const char* const text);

    // Substrings: refused unless 0 < count and start + count lies within the text; a refused
    // std::string is left unchanged.
    static bool SubString(const char* const text, std::size_t start, std::size_t count,
                          std::string& out);
    static bool SubString(const char* const text, std::size_t start, std::size_t count, char** out);

    // Raw bytes: the caller vouches for text[start .. start + count). Null text and a count of
    // 0 are refused. A failed std::string is cleared.
    static bool GetBytes(const char* const text, std::size_t start, std::size_t count, char** out);
    static bool GetBytes(const char* const text, std::size_t start, std::size_t count,
                         std::string& out);

    // Replacement: THE ORDER IS input, replacement, pattern. One pass from the left;
    // occurrences do not overlap and a replacement is not searched again. A null replacement
    // counts as empty; an empty input, an empty or null pattern gives the input. Null input
    // throws std::invalid_argument "Argument "aInputStr" cannot be a nullptr.".
    static std::string Replace(const std::string& aInputStr, const std::string& replacement,
                               const std::string& pattern);
    static std::string Replace(const char* const aInputStr, const char* const replacement,
                               const char* const pattern);
    static void Replace(const char* const aInputStr, const char* const replacement,
                        const char* const pattern, char** out);

    // Case: ASCII letters only. A null input throws std::invalid_argument "Input argument cannot
    // be a nullptr."; the char** form, also for an empty input or a null output, "Input arguments
    // cannot be a nullptr.". The char** form leaves *out null when it throws.
    static std::string ToLower(const std::string& text);
    static std::string ToLower(const char* const text);
    static void ToLower(const char* const text, char** out);
    static std::string ToUpper(const std::string& text);
    static std::string ToUpper(const char* const text);
    static void ToUpper(const char* const text, char** out);

    // Trimming
    //
    // Allocates nothing: points into `text` and gives the number of characters that remain; null or
    // empty gives itself and 0. A text of blanks gives length 0, at its last character when the
    // start is trimmed, at its first when only the end is.
    static const char* Trim(const char* const text, std::size_t& length, bool trimStart,
                            bool trimEnd);
    // Without the blanks at the ends concerned. Null throws std::invalid_argument "Input argument
    // cannot be a nullptr.".
    static std::string Trim(const char* const text);
    static std::string TrimStart(const char* const text);
    static std::string TrimEnd(const char* const text);
    static std::string Trim(const std::string& text);
    // These trim only when a PLAIN SPACE stands at the end concerned, and then take every blank
    // there. A null or empty input gives an empty text; exhausted memory gives null.
    static void Trim(const char* const text, char** out);
    static void TrimStart(const char* const text, char** out);
    static void TrimEnd(const char* const text, char** out);
    // Trims both ends. When nothing remains, or on failure, releases what *out held and gives
    // false.
    static bool MemCopyTrimmedString(const char* const text, char** out);

    // Key=value text, split at the first "=". Null counts as empty; a text that begins with a
    // plain space is trimmed at its start. Without "=", or with one at the start, both halves
    // throw std::invalid_argument "Invalid input string. Input string must be in "key=value"
    // format.".
    //
    // The key is trimmed at its end. A key of blanks, and a pair shorter than three characters,
    // throw too.
    static std::string GetKeyFromKeyValuePair(const char* const pair);
    // A null `key` throws std::invalid_argument "ERROR: Input parameters cannot be NULL or an empty
    // string and must be given in format "key=value".".
    static void GetKeyFromKeyValuePair(const char* const pair, char** key);
    // The value is everything after the "=", blanks included.
    static std::string GetValueFromKeyValuePair(const char* const pair);
    // An empty value gives null. A null `value` throws std::invalid_argument "ERROR: Input
    // parameters cannot be a nullptr or an empty string and must be given in format "key=value".".
    static void GetValueFromKeyValuePair(const char* const pair, char** value);

    // Tokens: THE DELIMITERS COME FIRST, a set of characters. Runs of delimiters separate once, so
    // no token is empty. Without a token false with null and 0; null or empty arguments give false
    // with the outputs untouched. The caller releases with DeleteCStringArray.
    static bool Tokenize(const char* const delimiters, const char* const text, char**& tokens,
                         std::size_t& count);

    // Growing an array of owned strings. The array grows at its end (`append`) or at its front;
    // old strings are moved. On failure the arguments are left unchanged.
    //
    // Adds a copy of `entry`; null or empty is refused, and so is a null array with a count or
    // an array without one.
    static bool AddEntryToStringArray(char**& array, const char* const entry, std::size_t& count,
                                      bool append);
    // Null entries are skipped, null slots of `array` dropped; no entries at all are a success
    // that changes nothing. Entries are copied (an empty one is refused, with all of them), or
    // taken over: then they must be the library's strings, belong to `array` from now on, and
    // `entries` is cleared. The pair of `array` and `count` is not checked here.
    static bool AddEntriesToStringArray(char**& array, std::size_t& count,
                                        std::vector<char*>& entries, bool append, bool copyEntries);
    // From another array; both pairs are checked as above. When the strings are taken over,
    // `source` is released and becomes null with count 0.
    static bool AddEntriesToStringArray(char**& array, char**& source, std::size_t& count,
                                        std::size_t& sourceCount, bool append, bool takeOver);

    // Vectors of borrowed strings: an array of `count` null pointers to vectors that the caller
    // creates, and deletes before the array is released: the second function frees the array only.
    // A count of 0 gives 0 and leaves `containers` untouched; exhausted memory gives 0 and null.
    static std::size_t GetCStringVectorContainerArray(std::size_t count,
                                                      std::vector<const char*>**& containers);
    static void DeleteCStringVectorContainerArray(std::size_t count,
                                                  std::vector<const char*>**& containers);

    // Base64 (RFC 4648, padded, no line breaks)
    //
    // No data, or a null argument: false with the output untouched.
    static bool Base64Encode(const unsigned char* data, std::size_t size, char** encoded);
    // The first character outside the alphabet ends the input silently. The result may hold NUL
    // bytes: use `length`. A null or empty argument: false with the outputs untouched.
    static bool Base64Decode(const char* const encoded, char** decoded, std::size_t& length);

    // Narrow and wide text in the process's C locale, which must not be changed meanwhile. In
    // the "C" locale bytes are U+0000 to U+00FF.
    //
    // Succeeds only when every byte gives one character. Null, empty, and 0x7ffffffd bytes and
    // more are refused.
    static bool ConvertFromCharToWChar(const char* const text, wchar_t** wide);
    // A null or empty input gives null. Throws std::runtime_error "Failed to convert data from
    // wchar to char." for a character that the locale lacks, and when memory is exhausted
    // "Failed to allocate enough memory to perform requested operation.".
    static void ConvertFromWCharToChar(const wchar_t* wide, char** text);

    // UTF-8 and UTF-16. Lengths are in bytes and in 16-bit units, terminators not counted; the
    // length outputs may be null and become 0 on failure. Invalid sequences become U+FFFD.
    //
    // The system reads `textLength` as a signed 32-bit number: 0x7fffffff is refused, and one
    // that is negative there CONVERTS UP TO THE TERMINATOR of `text`, which is then counted.
    static bool ConvertFromMultiByteCharToWChar(const char* const text, std::size_t textLength,
                                                wchar_t** wide, std::size_t* wideLength);
    // THE OUTPUT COMES FIRST. Lengths from 1 to 0x7ffffffe are accepted.
    static bool ConvertFromWCharToMultiByteChar(char** text, const wchar_t* wide,
                                                std::size_t wideLength, std::size_t* textLength);

    // Numbers to text, as the standard streams write them under the global C++ locale, which
    // must not be changed meanwhile. An empty result says that the width was below the minimum
    // or that the formatting failed.
    //
    // Justified: 'L' fills with blanks on the right and ignores `zeroFill`; any other selector
    // fills on the left, with zeros behind the sign when `zeroFill` is on, else with blanks and
    // WITHOUT a plus sign whatever `showPlus` says. Wider values are not cut. The width is at
    // least 1, with `showPlus` at least 2; unsigned values have no plus sign all the same.
    static std::string ToString(char justification, int value, std::uint64_t width, bool showPlus,
                                bool zeroFill);
    static std::string ToString(char justification, long value, std::uint64_t width, bool showPlus,
                                bool zeroFill);
    static std::string ToString(char justification, std::int64_t value, std::uint64_t width,
                                bool showPlus, bool zeroFill);
    static std::string ToString(char justification, std::uint64_t value, std::uint64_t width,
                                bool showPlus, bool zeroFill);
    // THE WIDTH COMES BEFORE THE VALUE in this one.
    static std::string ToString(char justification, std::uint64_t width, unsigned int value,
                                bool showPlus, bool zeroFill);
    // Fixed notation, point always shown. The width must exceed precision + 1, with `showPlus`
    // precision + 2.
    static std::string ToString(char justification, double value, std::uint64_t width,
                                std::uint64_t precision, bool showPlus, bool zeroFill);
    // Decimal digits, behind a minus sign when the value is negative.
    static std::string ToString(int value);
    static std::string ToString(unsigned int value);
    static std::string ToString(long value);
    static std::string ToString(unsigned long value);
    static std::string ToString(std::int64_t value);
    static std::string ToString(std::uint64_t value);
    // Exponent form with `scientific`, else fixed. Digits after the point; a negative precision
    // means 20.
    static std::string ToString(double value, bool scientific, int precision);
    static bool ToString(char** out, double value, bool scientific, int precision);

    // Text to numbers. The text is trimmed if a plain space stands at an end; null or empty text is
    // refused. False says that the text was not accepted and leaves the output untouched.
    //
    // "true" or "false" in any letter case, no other word.
    static bool ToBool(const char* const text, bool& value);
    // Decimal digits with an optional leading sign. A fraction is accepted and dropped, "." and
    // ".5" are 0; no exponent, no hexadecimal; a bare sign is refused. Numbers beyond 32 bits
    // are accepted with a value of the C runtime's choice.
    static bool ToInteger(const char* const text, int& value);
    static bool ToLong(const char* const text, long& value);
    // As ToInteger, without "-". NOTHING ABOVE 2147483647 comes out: a larger number is refused or
    // comes out as another one.
    static bool ToUnsignedInt(const char* const text, unsigned int& value);
    // 64 bits, `ToInt64` with and `ToUInt64` without "-", as the standard streams extract under
    // the global C++ locale, which must not be changed meanwhile. A BARE SIGN AND A NUMBER OUT
    // OF RANGE ARE REPORTED AS TRUE, with a value of the stream's choice.
    static bool ToInt64(const char* const text, std::int64_t& value);
    static bool ToUInt64(const char* const text, std::uint64_t& value);
    // Decimal or exponent form, as the C runtime scans "%lf" with the decimal point of the C
    // locale, which must not be changed meanwhile: under one with a comma "1.5" is 1. An
    // overflow is refused with infinity in the output; an underflow gives the nearest value.
    static bool ToDouble(const char* const text, double& value);
    // "[first,second]", each as ToInteger takes it. A failure stores -1 in both.
    static bool ExtractIndices(const char* const text, int& first, int& second);

    // Measured values: texts of a value and its uncertainty, the uncertainty rounded to one
    // significant figure and the value to the same place, with one figure at least; A VALUE OF
    // EXACTLY 1 OR -1 GETS MORE. With `scientific` in exponent form, else fixed; a value of 0 is
    // "0.e+00" or "0.0". The decimal separator is that of the C locale when the library was
    // loaded. False, with both null, for an uncertainty that is not above 0, infinite numbers,
    // and numbers other than a value of 0 that read 0 with 20 decimals; also for every number
    // while the global C++ locale has another point, and for those whose digits it groups.
    static bool SignificantFigures(double value, double uncertainty, char** valueText,
                                   char** uncertaintyText, bool scientific);
    // Where the significant figures of a number in fixed notation stand. Trailing zeros are
    // significant in a number with a point only. An integer of zeros is accepted with a count of 0.
    // Digits are those of ASCII. A text with blanks or an exponent, a bare sign and zeros with a
    // point are refused with false and -1.
    static bool GetSignificantFiguresInfo(const char* const text, bool& hasDigits, bool& hasPoint,
                                          int& first, int& last, int& point, int& count);
    // A value above 0 rounded to at least one significant figure, always with its point, which
    // is ".". Refuses what SignificantFigures refuses.
    static bool TruncateUncertaintyValue(double value, char** out, bool scientific, int figures);

    // Byte buffers: the first byte is the most significant. A refused call stores 0.
    //
    // At most 8 (4) bytes; a count of 0 means all 8 (4).
    static bool BinaryToUnsignedInt64(const char* const bytes, std::uint64_t byteCount,
                                      std::uint64_t& out);
    static bool BinaryToUnsignedLong(const char* const bytes, std::uint64_t byteCount,
                                     unsigned long& out);
    // The two's-complement number in the leading ('L') or trailing ('R') bits of 1 to 8 (4) bytes;
    // at least 4 bits.
    static bool BitsToSignedInt64(char alignment, const char* const bytes, std::int64_t& out,
                                  std::uint64_t bitCount, std::uint64_t byteCount);
    static bool BitsToSignedLong(char alignment, const char* const bytes, long& out,
                                 std::uint64_t bitCount, std::uint64_t byteCount);
    // Adds arrays whose elements are THE NUMBERS 0 AND 1, the first the most significant; with
    // any other element false and a sum of zeros. `sum` may be one of the addends. A null array
    // and a length of 0 are refused with `sum` untouched.
    static bool AddTwoBinaryBitArrays(bool& carry, char* first, char* second, char* sum,
                                      std::uint64_t length);
    // The bytes as decimal numbers, or as eight bits each, with or without commas between them. The
    // caller releases with TEVUtilMemory::DeallocateCharArray.
    static bool DecimalRepresentationOfBinary(const char* const bytes, std::uint64_t byteCount,
                                              char** out, bool commaSeparated, bool asBits);

    // Byte order: reverses the bytes of every element in place. A null array or a count below 1 is
    // refused.
    static bool Swap16BitWord(short* array, int count);
    static bool Swap16BitWord(unsigned short* array, int count);
    static bool Swap32BitWord(int* array, int count);
    static bool Swap32BitWord(unsigned int* array, int count);
    static bool Swap32BitFloat(float* array, int count);
    static bool Swap64BitDouble(double* array, int count);
    // Always LittleEndian; nothing is probed.
    static TEVSysCnst::ByteOrder SystemByteOrder();

    // Messages by severity: the creators store a new, empty container in *vector or *map; they do
    // nothing when memory is exhausted. The Delete functions release a container with all that it
    // holds, set the pointer to null, accept null and always give true.
    static void GetMsgsVector(std::vector<char*>** vector);
    static void GetMsgsMap(std::map<TEVSysCnst::MsgLevel, std::vector<char*>*>** map);
    static bool DeleteMsgsVector(std::vector<char*>** vector);
    static bool DeleteMsgsMap(std::map<TEVSysCnst::MsgLevel, std::vector<char*>*>** map);
    // Appends a copy of the message, owned by `messages`, to its level; a level without vector
    // gets one. Readers neither release the messages nor keep them longer than their vector. A
    // null or empty message or an unknown level is refused; a failure changes nothing. Calls on
    // one map must be made one at a time.
    static bool AddMessage(const char* const message, TEVSysCnst::MsgLevel level,
                           std::map<TEVSysCnst::MsgLevel, std::vector<char*>*>& messages);

 private:
    // `isZero` says that no digit stands before the point.
    static bool IsValidSignedInteger(bool& isZero, const std::string& text);
    static bool IsValidUnsignedInteger(bool& isZero, const std::string& text);
    // The outputs are positions in the text; in exponent form in front of the "e".
    static bool RoundToSignificantFigures(bool scientific, char** out, double value, int* first,
                                          int* last, int* point, int figures);

    TEVUtilString() = default;
    ~TEVUtilString() = default;
};

}  // namespace TAMO::TEV::System::Util
