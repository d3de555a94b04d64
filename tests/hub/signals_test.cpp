/// The event stream's own shape: which signals the hub has, with which arguments, and that each may be queued.
#include <support/builders.h>

#include <QMetaMethod>
#include <QSet>

namespace {

using Quorix::BizModel::DeviceList;
using Quorix::Tests::readLines;

TEST(HubSignals, AreTheOnesOfTheListAndCanBeQueued) {
    const QMetaObject *meta = DeviceList::instance()->metaObject();
    QSet<QString> signatures;
    QSet<QByteArray> names;
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() != QMetaMethod::Signal)
            continue;
        signatures.insert(QString::fromUtf8(method.methodSignature()));
        names.insert(method.name());
        for (int k = 0; k < method.parameterCount(); ++k)
            EXPECT_NE(method.parameterType(k), QMetaType::UnknownType) << method.methodSignature().constData();
    }
    EXPECT_TRUE(signatures.size() == 176 && names.size() == 176);
    const auto listed = readLines(QUORIX_TEST_DIR "/signals.txt");
    const QSet<QString> expected(listed.begin(), listed.end());
    EXPECT_EQ((signatures - expected).values().join('\n').toStdString(), "");
    EXPECT_EQ((expected - signatures).values().join('\n').toStdString(), "");
}

TEST(HubSignals, DeviceSignalsCanBeQueuedToo) {
    const QMetaObject &meta = Quorix::BizModel::Device::staticMetaObject;
    DeviceList::instance();
    int count = 0;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i, ++count)
        for (int k = 0; k < meta.method(i).parameterCount(); ++k)
            EXPECT_NE(meta.method(i).parameterType(k), QMetaType::UnknownType) << meta.method(i).name().data();
    EXPECT_EQ(count, 54 + 5); // relayed, and without a relay
}

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
