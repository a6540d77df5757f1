#include "ui/document/AddressField.h"

#include "ui/Strings.h"
#include "window/ShownAddress.h"

#include <QFocusEvent>

#include <limits>

namespace tabulon {

AddressField::AddressField(QWidget* parent) : QLineEdit(parent) {
    setMaxLength(std::numeric_limits<int>::max()); // a script in an address may be long
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
        setText(shown);
}

void AddressField::focusInEvent(QFocusEvent* event) {
    showAddress(false);
    QLineEdit::focusInEvent(event);
}

void AddressField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) // its own menu
        showAddress(true);
}

} // namespace tabulon
