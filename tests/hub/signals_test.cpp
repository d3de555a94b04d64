/// The event stream's own shape: a signal that is answered, and types under every spelling.
#include <support/builders.h>

#include <gtest/gtest.h>

#include <QMetaType>

namespace {

using Quorix::BizModel::DeviceList;

TEST(HubSignals, AnswerOfAMessageBoxComesBack) {
    QObject userInterface;
    auto *hub = DeviceList::instance();
    QObject::connect(hub, &DeviceList::signalShowFramelessMessageBoxMsg, &userInterface,
                     [](auto, const QString &text) { return text.size(); });
    EXPECT_EQ(hub->signalShowFramelessMessageBoxMsg({}, QStringLiteral("Sure?")), 5);
}

TEST(HubMetaTypes, OneTypeUnderEverySpelling) {
    using Quorix::BizModel::Layer;
    DeviceList::instance();
    const int weak = qMetaTypeId<std::weak_ptr<Quorix::BizModel::Device>>();
    for (const char *name :
         {"std::weak_ptr<Device>", "std::weak_ptr<BizModel::Device>", "std::weak_ptr<Quorix::BizModel::Device>"})
        EXPECT_EQ(QMetaType::type(name), weak) << name;
    EXPECT_EQ(QMetaType::type("QList<std::weak_ptr<BizModel::Layer>>"), qMetaTypeId<QList<std::weak_ptr<Layer>>>());
    for (const char *name : {"std::shared_ptr<Image>", "std::weak_ptr<BizModel::Output>", "std::string", "uint16_t",
                             "Enum::Device::OperationStatus", "QMessageBox::StandardButton"})
        EXPECT_NE(QMetaType::type(name), QMetaType::UnknownType) << name;
}

} // namespace
