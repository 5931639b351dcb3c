#pragma once
// Comparing the printf conversions of two format texts, so that a
// translation can't ask for other arguments than the original passes.

// True when `a` and `b` hold the same conversions in the same order, each
// written the same way ("%ld" differs from "%d" and "%.65s" from "%s"). A
// conversion runs from '%' to the first letter that is not a length
// modifier (h l L q j z t), or to the end of the text; "%%" is a plain
// percent sign and not a conversion.
bool SamePrintfConversions(const char* a, const char* b);
