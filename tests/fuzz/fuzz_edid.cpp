/// Any bytes as an EDID: read, converted, and used as the model of a new one, which must verify and read back.
#include <quorixtiming/quorixtiming.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

void readDescriptor(const std::uint8_t *descriptor) {
    cea861_dtd_t dtd;
    if (!edid_parse_dtd(descriptor, &dtd))
        return;
    digital_vid_modeline_t modeline;
    digital_vid_modeline2_t modeline2;
    edid_dtd2modeline_convert(&dtd, &modeline);
    edid_dtd2modeline2_convert(&dtd, &modeline2);
    require(modeline.h_a_f_s_b == modeline2.htot && modeline2.x <= 80 && modeline2.y <= 80);
    std::uint8_t again[EDID_DESCRIPTOR_SIZE];
    cea861_dtd_t back;
    require(edid_dtd_fits(dtd) && edid_create_dtd(&dtd, again) && edid_parse_dtd(again, &back) && back == dtd);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    // The first eight bytes are a request, the rest is the model.
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    float rate = 0;
    if (size < 8)
        return 0;
    std::memcpy(&width, data, 2);
    std::memcpy(&height, data + 2, 2);
    std::memcpy(&rate, data + 4, 4);
    std::uint8_t model[EDID_SIZE];
    if (!edid_load(data + 8, size - 8, model))
        return 0;

    edid_EDIDBlock0 block;
    edid_parse_block0(model, &block);
    for (const auto &descriptor : block.Descriptor)
        readDescriptor(descriptor);

    // Sums are made right, or hardly any input would come further than here.
    for (std::size_t half = 0; half < EDID_SIZE; half += EDID_BLOCK_SIZE) {
        std::uint8_t &last = model[half + EDID_BLOCK_SIZE - 1];
        last = 0;
        for (std::size_t i = 0; i < EDID_BLOCK_SIZE - 1; ++i)
            last = static_cast<std::uint8_t>(last - model[half + i]);
    }
    std::uint8_t made[EDID_SIZE];
    if (ResT_calEDID_by_model(EN_AUTO, model, made, width, height, rate) != ResT_OK)
        return 0;
    edid_complete_image_size(made);
    require(ResT_verify_EDID(made) == ResT_OK && edid_parse_block0(made, &block));
    require(std::equal(made + EDID_BLOCK_SIZE, made + EDID_SIZE, model + EDID_BLOCK_SIZE));
    readDescriptor(block.Descriptor[0]);
    return 0;
}
