#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/common/guarded.h>

namespace Quorix::BizModel {

void Device::setGenlockOnStatus(const ProtoModel::Device::s_GenlockSignalBody &signal) {
    if (assign(m_detailRWLock, m_detail.genlockSignal, signal))
        Q_EMIT signalGenlockSignalChanged();
}

} // namespace Quorix::BizModel
