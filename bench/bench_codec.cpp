/// Typed decoding and encoding, in MB/s of stored text, next to other libraries that fill the same records:
/// 1000 layers, the same with the keys of every object shuffled, and the report of a whole device.
/// The closing table gives each library's speed and ours as a multiple of it.
#include "codec_rivals.h"

#include <quorixprotomodel/quorixprotomodel.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <random>

namespace Proto = Quorix::ProtoModel;

namespace {

using Layers = Proto::Layer::s_LayerDetailArray;

struct Report {
    std::uint32_t modelId = 0;
    Proto::DeviceBaseInfo baseInfo;
    Proto::Device::s_DeviceDetail detail;
    std::vector<Proto::Interface::s_InterfaceDetail> interfaces;
    std::vector<Proto::Screen::s_ScreenFullDetail> screens;
    Layers layers;
    std::vector<Proto::File::s_FileDetail> files;
};
QUORIX_AJSON(Report, modelId, baseInfo, detail, interfaces, screens, layers, files)

template <class T>
T decoded(const std::string &text) {
    T value{};
    ajson::reader rd(text.data(), text.size());
    rd.next();
    ajson::json_impl<T>::read(rd, value);
    return value;
}

/// Layers as a busy wall has them: no two alike, some with a crop, two UMDs or a name beyond ASCII.
Layers manyLayers() {
    std::mt19937 random(20240229); // the same layers in each run
    const auto upTo = [&random](std::uint32_t limit) { return static_cast<std::int32_t>(random() % limit); };
    Layers layers(1000);
    for (std::size_t i = 0; i < layers.size(); ++i) {
        auto &layer = layers[i];
        layer.layerIdenti.screenId = static_cast<std::uint8_t>(i / 64);
        layer.layerIdenti.layerId = static_cast<std::uint8_t>(i % 64);
        layer.layerIdenti.layerType = upTo(4);
        layer.zorder = static_cast<std::int32_t>(i);
        layer.selected = upTo(2);
        layer.general.name = (i % 8 == 0 ? "\xE5\x9B\xBE\xE5\xB1\x82 " : "Layer ") + std::to_string(i + 1);
        layer.source.general.type = upTo(6);
        layer.source.general.id = static_cast<std::uint32_t>(upTo(20)) << 16U | static_cast<std::uint32_t>(upTo(4))
                                                                                    << 8U;
        layer.source.crop.resize(i % 4 == 0 ? 1 : 0);
        for (auto &crop : layer.source.crop)
            crop.widthRatio = 100000 - (crop.xRatio = upTo(50000));
        layer.window.x = upTo(7680) - 640;
        layer.window.y = upTo(4320) - 360;
        layer.window.width = 64 + upTo(3840);
        layer.window.height = 64 + upTo(2160);
        layer.opacity = upTo(101);
        layer.imageQuality.brightness.all = upTo(101);
        layer.imageQuality.hue = upTo(36000) - 18000;
        layer.border.enable = upTo(2);
        layer.border.color.R = upTo(256);
        layer.border.color.G = upTo(256);
        layer.border.color.B = upTo(256);
        layer.UMD.resize(i % 8 == 0 ? 2 : 0);
    }
    return layers;
}

nlohmann::ordered_json shuffled(const nlohmann::ordered_json &json, std::mt19937 &random) {
    if (json.is_array()) {
        auto result = nlohmann::ordered_json::array();
        for (const auto &element : json)
            result.push_back(shuffled(element, random));
        return result;
    }
    if (!json.is_object())
        return json;
    std::vector<std::string> keys;
    for (const auto &[key, value] : json.items())
        keys.push_back(key);
    std::shuffle(keys.begin(), keys.end(), random);
    auto result = nlohmann::ordered_json::object();
    for (const auto &key : keys)
        result[key] = shuffled(json[key], random);
    return result;
}

std::string shuffledText(const std::string &text) {
    std::mt19937 random(7);
    return shuffled(nlohmann::ordered_json::parse(text), random).dump(-1, ' ', true);
}

std::string reportText() {
    std::ifstream file(QUORIX_DATA_DIR "/reports/alder-max.json");
    const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    return ajson::encode(decoded<Report>(text));
}

/// One measurement: @p work does it once; the speed is counted in bytes of @p size.
void add(const std::string &name, std::size_t size, std::function<void()> work) {
    benchmark::RegisterBenchmark(name.c_str(), [size, work = std::move(work)](benchmark::State &state) {
        for ([[maybe_unused]] auto iteration : state)
            work();
        state.SetBytesProcessed(static_cast<std::int64_t>(size) * state.iterations());
    })->MinTime(0.7);
}

template <class T, bool InOrder = true>
void addDecoding(const std::string &name, const std::string &text) {
    const std::string wanted = ajson::encode(decoded<T>(text));
    const auto contest = [&](const char *library, auto read) {
        T value{};
        read(value);
        if (ajson::encode(value) != wanted)
            throw std::runtime_error(name + library + " reads other values");
        add(name + library, text.size(), [read] {
            T fresh{};
            read(fresh);
            benchmark::DoNotOptimize(&fresh);
        });
    };
    contest("ours", [text](T &value) {
        ajson::reader rd(text.data(), text.size());
        rd.next();
        ajson::json_impl<T>::read(rd, value);
    });
    contest("RapidJSON", [text](T &value) { rivals::rapidRead(text, value); });
    contest("simdjson", [padded = std::make_shared<simdjson::padded_string>(text),
                         parser = std::make_shared<simdjson::ondemand::parser>()](T &value) {
        simdjson::ondemand::document document = parser->iterate(*padded);
        rivals::simdRead<InOrder>(document, value);
    });
    contest("nlohmann", [text](T &value) { rivals::treeRead(nlohmann::json::parse(text), value); });
}

template <class T>
void addEncoding(const std::string &name, const T &value) {
    const std::string text = ajson::encode(value);
    add(name + "ours", text.size(), [value] {
        ajson::ajson_string_stream<> stream;
        ajson::lite_write<> writer(stream);
        ajson::json_impl<T>::write(writer, value);
        benchmark::DoNotOptimize(stream.data());
    });
    add(name + "RapidJSON", text.size(), [value] {
        rapidjson::StringBuffer buffer;
        rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
        rivals::rapidWrite(writer, value);
        benchmark::DoNotOptimize(buffer.GetString());
    });
    add(name + "nlohmann", text.size(), [value] {
        const std::string made = rivals::treeOf(value).dump();
        benchmark::DoNotOptimize(made.data());
    });
}

class TableReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            const std::string name = run.run_name.function_name;
            const std::size_t slash = name.rfind('/');
            const auto speed = run.counters.find("bytes_per_second");
            if (speed != run.counters.end())
                m_speeds[name.substr(0, slash)][name.substr(slash + 1)] = speed->second.value / 1e6;
        }
    }
    void Finalize() override {
        std::printf("\n%-18s %10s", "MB/s (ours is x)", "ours");
        for (const char *library : libraries)
            std::printf(" %18s", library);
        for (auto &[job, speeds] : m_speeds) {
            std::printf("\n%-18s %10.0f", job.c_str(), speeds["ours"]);
            for (const char *library : libraries)
                if (const double speed = speeds[library]; speed > 0)
                    std::printf(" %9.0f (%5.1fx)", speed, speeds["ours"] / speed);
                else
                    std::printf(" %18s", "-");
        }
        std::printf("\n");
    }

private:
    static constexpr std::array<const char *, 3> libraries{"RapidJSON", "simdjson", "nlohmann"};
    std::map<std::string, std::map<std::string, double>> m_speeds;
};

} // namespace

int main(int argc, char **argv) {
    benchmark::Initialize(&argc, argv);
    const Layers layers = manyLayers();
    const std::string layerText = ajson::encode(layers);
    const std::string report = reportText();
    addDecoding<Layers>("layers/decode/", layerText);
    addDecoding<Layers, false>("shuffled/decode/", shuffledText(layerText));
    addDecoding<Report>("report/decode/", report);
    addEncoding("layers/encode/", layers);
    addEncoding("report/encode/", decoded<Report>(report));
    TableReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
