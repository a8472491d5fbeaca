#pragma once

// Marks the symbols that the shared library exports; everything else stays hidden.
#define TOLVINPT_EXPORT __attribute__((visibility("default")))
