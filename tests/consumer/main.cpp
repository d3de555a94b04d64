#include <quorixbizmodel/quorixbizmodel.h>

#include <QCoreApplication>

#include <cstdio>

using namespace Quorix::BizModel;

namespace {

int fail(const char *what) {
    std::fprintf(stderr, "consumer: %s\n", what);
    return 1;
}

/// The codec's exception crosses the library's boundary and is caught by its type.
bool catchesCodecErrors() {
    try {
        ajson::reader reader("{1:2}", 5);
        reader.next();
        Quorix::ProtoModel::s_Pos pos;
        ajson::json_impl<Quorix::ProtoModel::s_Pos>::read(reader, pos);
    } catch (const ajson::exception &error) {
        return std::string(error.what()).find("object key must be string") != std::string::npos;
    }
    return false;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    int heard = 0;
    QObject::connect(DeviceList::instance(), &DeviceList::signalDeviceNameChanged, [&heard] { ++heard; });
    const auto device = std::make_shared<Device>(29958, nullptr);
    DeviceList::instance()->append(device);
    device->setName("Studio A");
    if (heard != 1 || device->name() != "Studio A")
        return fail("a change of name was not heard");
    if (!catchesCodecErrors())
        return fail("an error of the codec was not caught by its type");
    Quorix::ProtoModel::s_TimingDetailBody timing;
    if (!Helper::calcTimingbyModel(&timing, 1920, 1080, 60.0F) || timing.horizontal.totalTime != 2200)
        return fail("a timing is wrong");
    std::puts("consumer: ok");
    return 0;
}
