#include <quorixbizmodel/screens/screen.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>

namespace Quorix::BizModel {

using ProtoModel::Screen::s_FTBBody;
using ProtoModel::Screen::s_SwitchEffectBody;
using ProtoModel::Screen::s_TbarBody;

void Screen::setState(State state) {
    {
        const WriteGuard guard(m_screenStateRWLock);
        const int last = m_screenState;
        if (!assign(m_screenState, toInt(state)))
            return;
        m_lastScreenState = last;
    }
    Q_EMIT singalScreenStateChanged();
}

Screen::State Screen::state() const { return static_cast<State>(copyOf(m_screenStateRWLock, m_screenState)); }

Screen::State Screen::lastState() const { return static_cast<State>(copyOf(m_screenStateRWLock, m_lastScreenState)); }

bool Screen::passState(State from, State to) {
    if (state() != from)
        return false;
    setState(to);
    return true;
}

bool Screen::startTake() { return passState(State::Normal, State::Taking); }
bool Screen::endTake() { return passState(State::Taking, State::Normal); }
bool Screen::startCut() { return passState(State::Normal, State::Cut); }
bool Screen::endCut() { return passState(State::Cut, State::Normal); }
bool Screen::startTBar() { return passState(State::Normal, State::Tbar_taking); }
bool Screen::endTBar() { return passState(State::Tbar_taking, State::Normal); }

void Screen::setTBar(int percent) { setTBar(s_TbarBody{.percent = percent}); }

void Screen::setTBar(const s_TbarBody &tbar) {
    if (assign(m_detailRWLock, m_detail.tbar, tbar))
        Q_EMIT signalTBarChanged();
}

s_TbarBody Screen::TBar() const { return copyOf(m_detailRWLock, m_detail.tbar); }

qreal Screen::TBarProcess() const { return TBar().percent / 100.0; }

void Screen::setSwitchEffect(const s_SwitchEffectBody &effect) {
    if (assign(m_detailRWLock, m_detail.switchEffect, effect))
        Q_EMIT signalSwitchEffectchanged();
}

s_SwitchEffectBody Screen::switchEffect() const { return copyOf(m_detailRWLock, m_detail.switchEffect); }

void Screen::setSwitchEffect(qreal time) {
    if (assign(m_detailRWLock, m_detail.switchEffect.time, Helper::model2ProtoEffectTime(time)))
        Q_EMIT signalSwitchEffectchanged();
}

qreal Screen::switchEffectTime() const { return Helper::proto2ModelEffectTime(switchEffect().time); }

void Screen::setSwitchEffect(SwitchEffectType type) {
    if (assign(m_detailRWLock, m_detail.switchEffect.type, toInt(type)))
        Q_EMIT signalSwitchEffectchanged();
}

Screen::SwitchEffectType Screen::switchEffectType() const { return static_cast<SwitchEffectType>(switchEffect().type); }

void Screen::setFTB(const s_FTBBody &ftb) {
    if (assign(m_detailRWLock, m_detail.FTB, ftb))
        Q_EMIT signalFTBchanged();
}

void Screen::setFTB(bool isEnabled) {
    if (assignSwitch(m_detailRWLock, m_detail.FTB.enable, isEnabled))
        Q_EMIT signalFTBchanged();
}

s_FTBBody Screen::FTB() const { return copyOf(m_detailRWLock, m_detail.FTB); }

bool Screen::FTBEnable() const { return Helper::int2Bool(FTB().enable); }

void Screen::setFreeze(bool isFrozen) {
    if (assignSwitch(m_detailRWLock, m_detail.freeze, isFrozen))
        Q_EMIT signalFreezeChanged();
}

bool Screen::freeze() const { return Helper::int2Bool(copyOf(m_detailRWLock, m_detail.freeze)); }

void Screen::setPGMEdit(bool isEnabled) {
    if (assignSwitch(m_detailRWLock, m_detail.PGMEdit, isEnabled))
        Q_EMIT signalPGMEditEnableChanged();
}

void Screen::setOperationTarget(SceneType scene) {
    if (assign(m_detailRWLock, m_curOperationTarget, toInt(scene)))
        Q_EMIT signalOperationTargetChanged();
}

Screen::SceneType Screen::operationTarget() const {
    return static_cast<SceneType>(copyOf(m_detailRWLock, m_curOperationTarget));
}

} // namespace Quorix::BizModel
