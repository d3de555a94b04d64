#include <quorixbizmodel/common/helper.h>

#include <quorixprotomodel/protomodelbase.h>
#include <quorixtiming/display_timing.h>
#include <quorixtiming/resolution_timing.h>

namespace Quorix::BizModel {

bool Helper::calcTimingbyModel(ProtoModel::s_TimingDetailBody *pTiming, int width, int height, float InputFreq) {
    cea861_dtd_t descriptor{};
    if (pTiming == nullptr || ResT_calDTD_by_model(EN_AUTO, &descriptor, static_cast<std::uint16_t>(width),
                                                   static_cast<std::uint16_t>(height), InputFreq) != ResT_OK)
        return false;
    pTiming->horizontal.addTime = descriptor.HorizActivePixels;
    pTiming->horizontal.totalTime = descriptor.HorizActivePixels + descriptor.HorizBlankingPixels;
    pTiming->horizontal.frontPorch = descriptor.HorizSyncOffset;
    pTiming->horizontal.sync = descriptor.HorizSyncPulseWidth;
    pTiming->vertical.addTime = descriptor.VertActiveLines;
    pTiming->vertical.totalTime = descriptor.VertActiveLines + descriptor.VertBlankingLines;
    pTiming->vertical.frontPorch = descriptor.VertSyncOffset;
    pTiming->vertical.sync = descriptor.VertSyncPulseWidth;
    return true;
}

} // namespace Quorix::BizModel
