#include "ui/document/AddressField.h"

#include "ui/Strings.h"
#include "window/ShownAddress.h"

#include <QFocusEvent>

#include <limits>

namespace tabulon {

AddressField::AddressField(QWidget* parent) : LineField(parent) {
    setMaxLength(std::numeric_limits<int>::max()); // a script in an address may be long
    showText({});
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
        address_ = text;
        emit addressEdited(text);
    });
}

void AddressField::setAddress(const Text& address) {
    address_ = toQString(address.view());
    showAddress(!hasFocus());
}

void AddressField::showAddress(bool coded) {
    const QString shown = coded ? toQString(shownAddress(Text(address_.toStdString())).view()) : address_;
    if (text() != shown)
        showText(shown);
}

void AddressField::focusInEvent(QFocusEvent* event) {
    showAddress(false);
    LineField::focusInEvent(event);
}

void AddressField::focusOutEvent(QFocusEvent* event) {
    LineField::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) // its own menu
        showAddress(true);
}

} // namespace tabulon
