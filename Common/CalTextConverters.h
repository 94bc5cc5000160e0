#pragma once

#include <QtGlobal>

// Text forms of values in Cal/INI files: lists of numbers as one value
// ("1,2,3"), and binary blocks as hexadecimal text ("01 AB 00 FF").
//
// The Format... functions write into a buffer that the caller sizes, end the
// text with a zero byte and give its length without that byte.

// "%d" per value, the separator between values and none behind the last.
int FormatUInt16List(char *target, const quint16 *values, int count, char separator);
int FormatInt16List(char *target, const qint16 *values, int count, char separator);
// Each value with `decimals` digits behind the point.
int FormatDoubleList(char *target, const double *values, int count, char separator, int decimals);

// Store the first `maxCount` numbers of the text and give how many were
// stored. A number is a run of digits, "-", "+", ".", "E" and "e"; any other
// character separates, and several in a row count as one. Integer lists look
// at the first 2,047 characters only, lists of reals at the first 32,767.
// Integers keep their low 16 bits; a real of 9.91e37 is stored as -987654321.0.
int ParseUInt16List(const char *text, quint16 *values, int maxCount);
int ParseDoubleList(const char *text, double *values, int maxCount);

// A value as a record stores it in a unit of 1/factor: times `factor`, the
// fraction dropped towards zero, the low 16 bits; 0 for what is no number.
// 1.99 dB in 1/32 dB gives 63, -1.99 gives -63 (0xFFC1).
quint16 ScaledToStored(double value, double factor);
// A value rounded half away from zero as a record stores it: the sum with
// 0.5 in single precision, the fraction dropped, the low 16 bits; 0 for what
// is no finite number (4096 over a slope of 0).
quint16 RoundedToStored(float value);

// Each byte as two upper-case digits, bytes separated by one blank, a zero
// byte behind the last: 3 * size bytes, else false and nothing is written.
bool BinaryToHexText(const quint8 *source, int size, char *target, int targetCapacity);
// The reverse, for upper- and lower-case digits. False if the text holds more
// than `targetCapacity` bytes (nothing written), or if a byte is followed by
// anything but a blank or the end of the text (the bytes before it stay).
bool HexTextToBinary(const char *text, int textLength, quint8 *target, int targetCapacity);
