// A field for an address. While it does not have the keyboard, it shows controls of writing direction
// percent-encoded. The address itself is edited as it is.
#pragma once

#include "base/Text.h"
#include "ui/LineField.h"

namespace tabulon {

/// The field.
class AddressField : public LineField {
    Q_OBJECT

public:
    /// `parent` owns the field.
    explicit AddressField(QWidget* parent);

    /// Shows the address. Does not emit `addressEdited`.
    void setAddress(const Text& address);

signals:
    /// Emitted when the user has changed the address, which is not encoded here.
    void addressEdited(const QString& address);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// Shows the address, percent-encoded or as it is.
    void showAddress(bool coded);

    /// The address as it is.
    QString address_;
};

} // namespace tabulon
