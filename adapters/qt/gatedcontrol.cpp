// SPDX-License-Identifier: MIT
#include "adapters/qt/gatedcontrol.h"

#include "adapters/qt/log.h"
#include "adapters/qt/text.h"

#include <QCoreApplication>

#include <utility>

namespace velt::qt {

bool GatedControl::operatorInput(Gate::Call call) {
    if (closed_ || gate_.busy()) return false;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [weak = weak_from_this(), call = std::move(call)] {
            const auto self = weak.lock();
            if (self && !self->closed_) self->gate_.operatorInput(self, call);
        },
        Qt::QueuedConnection);
    return true;
}

void GatedControl::event(const void* key, Gate::Call call) {
    const auto self = weak_from_this().lock();
    if (self && !closed_) gate_.event(self, key, std::move(call));
}

void GatedControl::handle(const Gate::Call& call) {
    const auto self = weak_from_this().lock();
    if (self && !closed_) gate_.handle(self, call);
}

void GatedControl::hostCall(Gate::Call call) {
    if (!closed_) gate_.hostCall(shared_from_this(), std::move(call));
}

void GatedControl::terminate(Gate::Call call) {
    if (!closed_) gate_.terminate(shared_from_this(), std::move(call));
}

void GatedControl::close() {
    closed_ = true;
    gate_.abandon(*this);
}

void GatedControl::report(const std::shared_ptr<GatedControl>& control, const RuntimeError& error) {
    if (error.is(ErrorNumber::Cancelled)) return;
    qCWarning(logControls).noquote()
        << QStringLiteral("errore %1: %2").arg(error.Number()).arg(toQt(error.Description()));
    if (control && !control->closed_) control->announce(error);
}

}  // namespace velt::qt
