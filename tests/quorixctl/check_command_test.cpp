/// Whether a layer fits, from the command line.
#include "commandrun.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const char *line; ///< behind the report; words apart by blanks
    int code;
    const char *out; ///< stands somewhere in the output
    const char *err; ///< stands somewhere in the reason
};

const Row kRows[] = {
    // A 4K input costs 8 on each card that it meets; the middle row of the wall carries 12 beside it.
    {"--screen 0 --layer 0 --rect 1000,500,3760,2115", 1, "Out2 in slot 13: 20 of 16 units: too many",
     "doesn't fit: Output 2-1, Output 2-2, Output 2-3, Output 3-1"},
    {"--screen regular:0 --layer 0 --rect 40,40,3000,1000", 0, "Out2 in slot 13: 12 of 16 units\n", ""},
    {"--screen 4 --layer new --rect 0,0,3000,1000 --scene pgm --source input:6-0", 1,
     "proposed     new              Input 7-1   3000x1000 at 0,0     754x1000 at 0,0", "doesn't fit: Output 8-1\n"},
    {"--screen aux:1 --layer new --rect 0,0,3000,1000", 0, "AuxScreen 2, pgm: layer new, 3000x1000 at 0,0, fits", ""},
    {"--screen mvr:0 --layer 0 --rect 0,0,10,10", 1, "", "regular and AUX screens alone"},
    {"--screen 9 --layer 0 --rect 0,0,10,10", 1, "", "no screen regular:9"},
    {"--screen 0 --layer 77 --rect 0,0,10,10", 1, "", "no layer regular:0/pvw/77"},
    {"--screen 0 --layer 0 --rect 0,0,10", 2, "", "'0,0,10' is no rectangle"},
    {"--screen 0 --layer 0 --rect 0,0,0,10", 2, "", "is no size"},
    {"--screen 0 --layer 0 --rect 0,0,9,9 --source none", 2, "", "--source is for a new layer"},
    {"--screen 0 --layer 0", 2, "", "check wants --rect"},
};

TEST(CheckCommand, SaysWhetherItFitsAndWhy) {
    for (const Row &row : kRows) {
        const Outcome outcome = run(QStringList{"check", report("alder-max.json")} + QString(row.line).split(' '));
        EXPECT_EQ(outcome.code, row.code) << row.line;
        EXPECT_TRUE(outcome.out.contains(QLatin1String(row.out))) << row.line << '\n' << outcome.out;
        EXPECT_TRUE(outcome.err.contains(QLatin1String(row.err))) << row.line << '\n' << outcome.err;
    }
}

} // namespace
