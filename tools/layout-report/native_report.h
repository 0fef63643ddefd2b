// Shared by the parts of the native layout program.
#pragma once

namespace native_report {

// Failures found so far (each also printed as a "FAIL ..." line).
extern int failures;

// Runs the key-forwarding handlers over every key code and prints the translations.
void reportKeys();

}  // namespace native_report
