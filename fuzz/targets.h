#pragma once

#include <cstddef>
#include <cstdint>

// The fuzz targets: each one a pure function of its bytes that runs one of the program's readers
// of outside input and checks what it made of them. A finding is a crash, a sanitizer report or a
// failed check (which aborts). scripts/fuzz runs them under libFuzzer; fuzz_replay runs them over
// the kept inputs in the ordinary test suite.

using FuzzTarget = int (*)(const uint8_t* data, size_t size);

// The project file reader: what it stores, and that saving it and reading it again gives the same
// project back. The numeric header lines are checked against converting every prefix in turn.
int FuzzProjectFile(const uint8_t* data, size_t size);
// cDIBSection's BMP reader, then what the export does with a loaded picture: the block copy and
// the JPEG encoding.
int FuzzDibSection(const uint8_t* data, size_t size);
// A source picture turned into a pane's working BMP as StorePaneImage does it. The first two bytes
// choose the cell size and the flips, the rest is the picture file.
int FuzzPaneImage(const uint8_t* data, size_t size);
// The names the user chooses (UTF-8): the sequence analysis of the mass import and the splitting
// of the project and export paths.
int FuzzNames(const uint8_t* data, size_t size);

struct NamedFuzzTarget {
    const char* name; // also the folder of its seeds and kept findings
    FuzzTarget run;
};
inline constexpr NamedFuzzTarget kFuzzTargets[] = {{"projectfile", FuzzProjectFile},
                                                   {"dibsection", FuzzDibSection},
                                                   {"paneimage", FuzzPaneImage},
                                                   {"names", FuzzNames}};

// Aborts with the broken expectation on standard error: the fuzzer keeps the input as a finding.
void FuzzCheck(bool holds, const char* what);
