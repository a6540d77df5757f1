// A field for an address. While the keyboard is elsewhere it shows controls for the direction of writing
// coded; what is edited is the address as it is.
#pragma once

#include "base/Text.h"
#include "ui/LineField.h"

namespace tabulon {

class AddressField : public LineField {
    Q_OBJECT

public:
    explicit AddressField(QWidget* parent);

    void setAddress(const Text& address);

signals:
    /// The user has changed the address.
    void addressEdited(const QString& address);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void showAddress(bool coded);

    QString address_;
};

} // namespace tabulon
