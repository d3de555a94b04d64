/// The hub for the time of one command, and the road by which reported processors enter it.
#ifndef QUORIXCTL_SESSION_H
#define QUORIXCTL_SESSION_H

#include "command.h"
#include "report.h"

#include <quorixbizmodel/common/modelreferences.h>

#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace quorixctl {

/// Pictures of the reports go to a folder that ends with the session; so does what the hub holds, so that the next
/// command of this process starts with an empty one.
class HubSession {
public:
    /// Reads the capability files, too. Throws Failure if that fails.
    explicit HubSession(const Invocation &call);
    HubSession(const HubSession &) = delete;
    HubSession &operator=(const HubSession &) = delete;
    ~HubSession();

    /// Pictures go to the folder of --pictures, or to the user's own store, and stay.
    void keepPictures(const Invocation &call);

private:
    QTemporaryDir m_pictures;
    QString m_folder; ///< of the picture store before
};

/// Brings a reported processor into the hub, part by part as the library wants it. What the device refuses is told in
/// @p notes; the rest goes in.
std::shared_ptr<Quorix::BizModel::Device> feed(const ReportDocument &report, QTextStream &notes);

/// Stores a device under --root and prints what stands there. Throws UsageError without a root, and Failure if the
/// device can't be stored.
void store(const Invocation &call, const std::shared_ptr<Quorix::BizModel::Device> &device);

/// Throws Failure for a screen that the device doesn't have.
std::shared_ptr<Quorix::BizModel::Screen> screenOf(Quorix::BizModel::Device &device,
                                                   const Quorix::ProtoModel::s_ScreenId &id);

/// Calls that the model has queued are made now, as an event loop would: some signals reach the hub on that way.
void deliverQueuedSignals();

} // namespace quorixctl

#endif
