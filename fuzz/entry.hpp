// The names that the fuzzing engine calls a target by.
#pragma once

#include <cstddef>
#include <cstdint>

extern "C" {
int LLVMFuzzerInitialize(int *argc, char ***argv);
int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);
}
