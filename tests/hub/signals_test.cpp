/// The event stream's own shape: which signals the hub has, with which arguments, and that each may be queued.
#include <support/builders.h>

#include <gmock/gmock.h>

#include <QMetaMethod>
#include <QSet>

namespace {

using Quorix::BizModel::DeviceList;

/// All signals by their arguments, where D, S and L are weak references to a device, a screen and a layer.
// clang-format off
const struct {
    const char *arguments;
    const char *names;
} signalTable[] = {
    {"D", "signalDeviceAppended signalDeviceModelIdChanged signalDeviceIPChanged "
     "signalDeviceMasterControlStatusChanged signalDeviceNameChanged signalDeviceOnlineStatusChanged "
     "signalGenlockSignalChanged signalScreenGenlockSignalChanged signalGenlockConfigChanged "
     "signalOperationStatusChanged signalDeviceLoadProcessChanged signalMVRStatusChanged "
     "signalSelectedScreensChanged signalPowerStatusChanged signalOutputMappingStatusChanged "
     "signalOutputMappingTypeChanged signalDeviceGroupInfoChanged signalDeviceNovsStatusChanged "
     "signalInterfaceRelationEnableChanged signalInterfaceRelationPairsChanged "
     "signalSelectedInputChanged signalSelectedOutputChanged signalScreenMultilStateChanged "
     "signalViewingScreensChanged signalSwapStateChanged signalLoadToPGMStateChanged "
     "signalSelectedRegularScreensChanged signalSelectedAUXScreensChanged "
     "signalSelectedMVRScreensChanged signalPresetCleared signalActivedPresetKeyNoChanged"},
    {"shared Device", "signalDeviceRemoved"},
    {"", "signalDeviceCleared signalActivedDeviceChanged signalResourceShowStatusChanged "
     "signalRestoreDefLayout signalClearUserKey signalHideWaitingDialog"},
    {"QList<S>,int", "signalDeviceScreenLayersChanged signalDeviceScreenLayersUpdate"},
    {"D,weak Subcard", "signalSubCardAdded"},
    {"D,shared Subcard", "signalSubCardRemoved"},
    {"D,int", "signalSubCardInfoChanged"},
    {"D,weak Input", "signalInputAdded signalInputNameChanged"},
    {"D,shared Input", "signalInputRemoved"},
    {"D,shared Output", "signalDeviceOutputRemoved"},
    {"D,S", "signalScreenAdded signalActivedScreenChanged signalScreenNameChanged signalScreenIndexChanged "
     "signalScreenMosaicWindowRectChanged signalScreenPhysicalSizeChanged "
     "signalScreenPGMFreezeChanged signalScreenSpliceGridChanged signalScreenSpliceModeChanged "
     "signalScreenFTBChanged signalScreenEffectChanged signalScreenPGMEditChanged "
     "signalScreenStateChanged signalMVRScreenBackgroundColorChanged "
     "signalScreenOperationTargetChanged signalScreenNovsStatusChanged "
     "signalScreenMultilSelectedChanged signalSelectedRegularLayersChanged "
     "signalSelectedAUXLayersChanged signalSelectedMVRLayersChanged"},
    {"D,S,S", "signalScreenMoved"},
    {"D,shared Screen", "signalScreenRemoved"},
    {"D,weak MVRScreen", "signalActivedMVRScreenChanged signalMVRScreenRowColSpanChanged"},
    {"D,weak Preset", "signalPresetAdded signalActivedPresetChanged signalPresetCovered"},
    {"D,shared Preset", "signalPresetRemoved"},
    {"D,weak File", "signalKeypadChanged signalUserKeyChanged signalModifyUserKeyChanged signalDeleteUserKey "
     "signalNameChanged signalFileTypeChanged signalFileTransferProgressChanged "
     "signalFileContentChanged signalFileSizeChanged"},
    {"D,weak Image", "signalBKGAdded signalLogoAdded"},
    {"D,shared Image", "signalBKGRemoved signalLogoRemoved"},
    {"D,S,weak Output", "signalOutputAdded signalScreenOutputRemoved signalScreenOutputAOIChanged "
     "signalScreenActivedOutputChanged"},
    {"D,S,weak Output,QString", "signalScreenOutputBorderFuseChanged signalScreenOutputPosChanged"},
    {"D,S,L", "signalPVWLayerAdded signalPGMLayerAdded signalLayerAdded signalLayerSourceChanged "
     "signalLayerZorderChanged signalLayerNameChanged signalLayerBackgroundChanged "
     "signalLayerFreezeChanged signalLayerMonochromeChanged signalLayerInverseChanged "
     "signalLayerFlipTypeChanged signalLayerUMDChanged signalLayerColorChanged "
     "signalLayerWindowWHRatioChanged signalLayerWindowWHTypeChanged signalLayerUMDEnableChanged "
     "signalLayerUMDColorChanged signalCutAndFillChanged signalBKGLayerAdded signalLogoLayerAdded"},
    {"D,S,bool", "signalSelectedLayersChanged signalResouceOverFlowStatusChanged"},
    {"D,S,shared Layer", "signalLayerRemoved signalPVWLayerRemoved signalPGMLayerRemoved signalBKGLayerRemoved "
     "signalLogoLayerRemoved"},
    {"D,S,L,QString", "signalLayerWindowRectChanged signalLayerCropChanged signalLayerMaskChanged "
     "signalLayerOpacityChanged signalWindowWHRatioLockedStateChanged signalLayerBorderChanged "
     "signalLayerBorderColorChanged signalLayerSaturationChanged signalLayerHueChanged "
     "signalLayerBrightnessChanged signalLayerContrastChanged"},
    {"D,S,L,QRect,QRect", "signalWindowRectChanged"},
    {"D,weak Interface", "signalInterfaceNameChanged signalInterfaceSignalChanged signalPresetFrameTimingChanged "
     "signalInterfaceTestPatternChanged signalInterfaceCutoutRGBChanged "
     "signalInterfaceCutoutRGBReported signalInterfaceActualTimingChanged "
     "signalInterfaceColorSpaceChanged signalInterfaceColorRangeChanged "
     "signalInterfaceColorDepthChanged signalInterfacePresetColorSpaceChanged "
     "signalInterfacePresetColorRangeChanged signalInterfacePresetColorDepthChanged "
     "signalInterfaceOverLoadChanged signalHDCPInfoChanged signalInterfaceImageQualityChanged "
     "signalInterfacePresetColorGamutChanged signalInterfacePresetDynamicRangeChanged "
     "signalInterfacePresetPqMaxCllChanged signalInterfaceActualColorGamutChanged "
     "signalInterfaceActualDynamicRangeChanged signalInterfaceActualPqMaxCllChanged "
     "signalLssuedFailedUpDateInput"},
    {"D,weak Interface,QString", "signalInterfaceCropChanged"},
    {"D,weak Subcard,weak Connector", "signalConnectorSignalChanged signalConnectorOverLoadChanged signalConnectorCapacityChanged"},
    {"Enum::StatusBarMsgType,QString,int", "signalShowStatusBarMsg"},
    {"Enum::FramelessMessageBoxMsgType,QString", "signalShowFramelessMessageBoxMsg"},
    {"QMessageBox::StandardButton", "signalFramelessMessageBoxClosed"},
    {"QString", "signalShowWaitingDialog signalUpdateOperatorProcess"},
    {"qreal", "signalReadDataFromHWProgressChanged signalSendData2HWProgressChanged"},
    {"D,ProtoModel::File::s_FileTransPercentArray", "signalFilesTransferProgressChanged"},
    {"D,D", "signalDeviceSNChanged"},
    {"D,weak Output", "signalDeviceOutputAdded"},
    {"D,quint8,quint8", "signalScreenPVWRefrenceCountChanged signalScreenPGMRefrenceCountChanged"},
    {"D,uint16_t", "signalPresetKeyNoChanged"},
    {"ProtoModel::File::s_CreateImageFile", "signalCaptureImage"},
    {"QRect", "signalUpdateInputThumbbail"},
    {"int", "signalPageChanged"},
};
// clang-format on

QSet<QString> signaturesOfTable() {
    const std::pair<const char *, const char *> references[] = {{R"(\bD\b)", "weak Device"},
                                                                {R"(\bS\b)", "weak Screen"},
                                                                {R"(\bL\b)", "weak Layer"},
                                                                {R"((weak|shared) (\w+))", R"(std::\1_ptr<\2>)"},
                                                                {">>", "> >"},
                                                                {"quint8", "uchar"},
                                                                {"qreal", "double"}};
    QSet<QString> signatures;
    for (const auto &[arguments, names] : signalTable) {
        QString types = QString::fromLatin1(arguments);
        for (const auto &[pattern, replacement] : references)
            types.replace(QRegExp(QString::fromLatin1(pattern)), QString::fromLatin1(replacement));
        for (const auto &name : QString::fromLatin1(names).split(' '))
            signatures.insert(name + '(' + types + ')');
    }
    return signatures;
}

TEST(HubSignals, AreTheOnesOfTheTableAndCanBeQueued) {
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
    EXPECT_EQ(signatures.size(), 176);
    EXPECT_EQ(names.size(), 176);
    const auto differ = [](QSet<QString> left, const QSet<QString> &right) {
        return left.subtract(right).values().join('\n').toStdString();
    };
    EXPECT_EQ(differ(signatures, signaturesOfTable()), "");
    EXPECT_EQ(differ(signaturesOfTable(), signatures), "");
}

TEST(HubSignals, DeviceSignalsCanBeQueuedToo) {
    const QMetaObject &meta = Quorix::BizModel::Device::staticMetaObject;
    DeviceList::instance();
    int count = 0;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i, ++count)
        for (int k = 0; k < meta.method(i).parameterCount(); ++k)
            EXPECT_NE(meta.method(i).parameterType(k), QMetaType::UnknownType)
                << meta.method(i).methodSignature().constData();
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
