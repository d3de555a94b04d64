/// What a connector carries: limits of inputs and outputs, the words of a refusal, overloads.
#include "interfaces.h"

#include <cmath>
#include <limits>

namespace Quorix::Tests {

namespace {

constexpr auto kRgb = ColorSpace::RGB_4_4_4;
constexpr auto kHalf = ColorSpace::YCbCr_4_2_2;
constexpr auto kQuarter = ColorSpace::YCbCr_4_2_0;
const char *const kNothing = "";

/// Model, capacity, total pixels and lines, rate, colour space, depth; what is refused.
using Row = std::tuple<int, int, int, int, float, ColorSpace, int, const char *>;

} // namespace

struct Bandwidth : Chassis {
    /// Checks rows on the first port of a card, whose record says the capacity.
    template <std::size_t count>
    void check(Interface &port, const Body &card, const Row (&rows)[count]) {
        for (const auto &[model, capacity, hTotal, vTotal, rate, space, depth, refusal] : rows) {
            SCOPED_TRACE(testing::PrintToString(std::tuple(model, capacity, hTotal, rate, depth)));
            Body body = card;
            body.modelId = model;
            body.connectors.resize(1);
            body.connectors[0].capacityMode = capacity;
            reported(body);
            QString why;
            EXPECT_EQ(port.isBandwidthExceeded(hTotal, vTotal, rate, space, ColorDepth(depth), why), *refusal != 0);
            EXPECT_EQ(why, refusal);
        }
    }

    void place(Interface &interface, int slot) {
        interface.setOwerDevice(device);
        interface.setInterfaceId({slot, 0, 0});
    }
};

TEST_F(Bandwidth, OfOutputsGoesByCapacity) {
    Output output;
    place(output, 6);
    const char *const slow = "Minimum supported bandwidth:25MHZ,Current bandwidth:0.6MHZ.";
    const Row rows[] = {
        {30533, 0, 2200, 1125, 60.0F, kRgb, 8, kNothing}, // 148.5 MHz
        {30533, 0, 2200, 1125, 100.0F, kRgb, 8, "Maximum supported bandwidth:165MHZ,Current bandwidth:247.5MHZ."},
        {30533, 0, 100, 100, 60.0F, kRgb, 8, slow},
        {30533, 0, 1000, 1000, 25.0F, kRgb, 8, kNothing},   // at the minimum
        {30533, 1, 2200, 1125, 120.0F, kRgb, 16, kNothing}, // at the maximum, whatever the depth
        {30533, 2, 4400, 2250, 60.0F, kRgb, 8, kNothing},   // 14.256 Gbps
        {30533, 2, 4400, 2250, 60.0F, kRgb, 10, "Maximum supported bandwidth:14.4Gbps,Current bandwidth:17.82Gbps."},
        {30533, 2, 4400, 2250, 60.0F, kQuarter, 10, kNothing}, // 8.91 Gbps
        {30533, 2, 4400, 2250, 60.0F, ColorSpace::AUTO, 255, kNothing},
        {30533, 2, 4400, 2250, 60.0F, ColorSpace::AUTO, 0, kNothing},
        {30533, 2, 100, 100, 1.0F, kRgb, 8, "Minimum supported bandwidth:0.03Gbps,Current bandwidth:0Gbps."},
        {30533, 255, 2200, 1125, 60.0F, kRgb, 8, "Maximum supported bandwidth:0MHZ,Current bandwidth:148.5MHZ."},
        {30533, 0, -100, 100, 60.0F, kRgb, 8, "Minimum supported bandwidth:25MHZ,Current bandwidth:0MHZ."},
        {30533, 0, 100, 100, std::nanf(""), kRgb, 8, "Minimum supported bandwidth:25MHZ,Current bandwidth:0MHZ."},
        {30533, 2, 2147483647, 2147483647, std::numeric_limits<float>::max(), kRgb, -1,
         "Maximum supported bandwidth:14.4Gbps,Current bandwidth:1.84467e+10Gbps."}, // no more than 64 bits hold
    };
    check(output, outputCard(), rows);

    QString error;
    Output alone;
    for (const int slot : {0, 7}) { // without an owner, without a card
        EXPECT_FALSE(alone.isBandwidthExceeded(2200, 1125, 500.0F, kRgb, ColorDepth::_8_, error) || !error.isEmpty())
            << slot;
        place(alone, 7);
    }
}

TEST_F(Bandwidth, OfInputsGoesByCard) {
    Input input;
    place(input, 1);
    const Row rows[] = {
        {30469, 0, 2200, 1125, 60.0F, kRgb, 16, kNothing},
        {30469, 0, 2200, 1125, 100.0F, kRgb, 8, "Maximum supported bandwidth:165MHZ,Current bandwidth:247.5MHZ."},
        {30469, 1, 2200, 1125, 100.0F, kRgb, 8, kNothing},
        // The clock of a depth above 8 bits may be 297 MHz.
        {30473, 2, 2200, 1125, 120.0F, kRgb, 10, kNothing},
        {30473, 2, 2200, 1125, 121.0F, kRgb, 10, "The bandwidth exceeded the max bandwidth limit. Please try again."},
        {30473, 2, 2200, 1125, 121.0F, kRgb, 8, kNothing},
        {30473, 2, 2200, 1125, 121.0F, kHalf, 10, kNothing},
        // Data rates by capacity, but not with less chroma.
        {30474, 0, 2200, 1125, 60.0F, kRgb, 8, kNothing}, // 3.564 Gbps
        {30474, 0, 2200, 1125, 60.0F, kRgb, 0, kNothing}, // 0 is 8
        {30474, 0, 2200, 1125, 60.0F, kRgb, 12, "Maximum supported bandwidth:3.6Gbps,Current bandwidth:5.35Gbps."},
        {30474, 1, 2200, 1125, 60.0F, kRgb, 12, kNothing}, // 5.346 Gbps
        {30474, 1, 2200, 1125, 120.0F, kRgb, 12, "Maximum supported bandwidth:7.2Gbps,Current bandwidth:10.69Gbps."},
        {30474, 2, 2200, 1125, 120.0F, kRgb, 12, kNothing},
        {30474, 0, 2200, 1125, 60.0F, kHalf, 12, kNothing},
        {30474, 0, 100, 100, 60.0F, kRgb, 8, "Minimum supported bandwidth:0.03Gbps,Current bandwidth:0.01Gbps."},
        {30474, 255, 2200, 1125, 500.0F, kRgb, 12, kNothing}, // an unknown capacity is let pass
        // At dual link all reduced chroma counts as two samples; 4K isn't looked at.
        {30472, 1, 2200, 1125, 120.0F, kRgb, 8, kNothing}, // 7.128 Gbps
        {30472, 1, 2200, 1125, 120.0F, kRgb, 10, "Maximum supported bandwidth:8.64Gbps,Current bandwidth:8.91Gbps."},
        {30472, 1, 2200, 1125, 120.0F, kQuarter, 10, kNothing}, // 5.94 Gbps
        {30472, 1, 2200, 1125, 120.0F, kQuarter, 16, "Maximum supported bandwidth:8.64Gbps,Current bandwidth:9.5Gbps."},
        {30472, 2, 2200, 1125, 5000.0F, kRgb, 16, kNothing},
        {30472, 0, 2200, 1125, 100.0F, kRgb, 8, "Maximum supported bandwidth:165MHZ,Current bandwidth:247.5MHZ."},
    };
    check(input, singleLinks(), rows);
}

TEST_F(Bandwidth, OfInputsWithoutLimits) {
    const MessageLog messages;
    Input input;
    QString error;
    const auto isExceeded = [&] { return input.isBandwidthExceeded(2200, 1125, 60.0F, kRgb, ColorDepth::_8_, error); };
    EXPECT_FALSE(isExceeded());
    EXPECT_THAT(messages.take(), ElementsAre("warning: Device is null."));
    place(input, 1);
    EXPECT_FALSE(isExceeded());
    EXPECT_THAT(messages.take(), ElementsAre("warning: not find this card,slot id is  1"));
    reported(singleLinks(0)); // no record of the connector: limits of 0
    EXPECT_TRUE(isExceeded() && error == "Maximum supported bandwidth:0MHZ,Current bandwidth:148.5MHZ.");
    EXPECT_THAT(messages.take(), testing::Contains("warning: The pConnector is null"));
    quint64 max = 7, min = 5;
    input.interfaceMaxMinBandWidth(max, min);
    EXPECT_TRUE(max == 7U && min == 5U);

    // A depth that is asked of the signal: an actual 0 stays 0.
    Body body = singleLinks();
    body.modelId = 30474;
    reported(body);
    device->setDeviceOnlineFlag(true);
    input.setActualTiming(fullHd());
    EXPECT_TRUE(input.isBandwidthExceeded(2200, 1125, 60.0F, kRgb, ColorDepth::_255_, error));
    EXPECT_EQ(error, QStringLiteral("Minimum supported bandwidth:0.03Gbps,Current bandwidth:0Gbps."));
    input.setActualColorDepth(ColorDepth::_8_);
    EXPECT_FALSE(input.isBandwidthExceeded(2200, 1125, 60.0F, kRgb, ColorDepth::_255_, error));
    EXPECT_FALSE(input.bandwidthErrorMsg(1, 1, 9, error, QStringLiteral("MHZ"), 0.0));
}

TEST_F(Bandwidth, OverloadsALiveInputAlone) {
    const std::tuple<int, int, bool, int, bool> rows[] = {
        {kQuad4k, 2, true, 10000, true},
        {kQuad4k, 2, true, 6000, false},
        {kQuad4k, 4, true, 10000, false},  // an output
        {kQuad4k, 2, false, 10000, false}, // no device
        {kQuad4k, 2, true, 0, false},
        {30466, 2, true, 10000, false},           // a card that tells none
        {65536 + kQuad4k, 2, true, 10000, false}, // an unknown card
    };
    for (const auto &[model, type, isOnline, refresh, isOverLoad] : rows) {
        Body body = singleLinks();
        body.modelId = model;
        reported(body);
        device->setDeviceOnlineFlag(isOnline);
        Input input;
        place(input, 1);
        input.setType(InterfaceType(type));
        input.setActualTiming(fullHd(refresh));
        EXPECT_EQ(input.checkOverLoadStatus(), isOverLoad) << model << ' ' << type << ' ' << refresh;
        EXPECT_EQ(input.isOverLoad(), isOverLoad) << model << ' ' << type << ' ' << refresh;
    }
}

TEST_F(Bandwidth, SortsOutRatesAndProposals) {
    reported(outputCard());
    Output output;
    place(output, 6);
    EXPECT_THAT(output.getValidRefreshList({1920, 1080}, kRgb, ColorDepth::_16_, {120, 60, 24, 100, 50}),
                ElementsAre(60, 24, 50));
    const MessageLog messages;
    EXPECT_TRUE(output.calTotalTime({1920, 1080}, 60.0F, kRgb, ColorDepth::_8_, 0));
    EXPECT_FALSE(output.calTotalTime({1920, 1080}, 120.0F, kRgb, ColorDepth::_8_, 0));
    EXPECT_THAT(messages.take(), ElementsAre("warning: The bandwidth exceeded the bandwidth limit!"));
}

} // namespace Quorix::Tests
