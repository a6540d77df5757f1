// A field for an address. While it does not have the keyboard, it shows controls of writing direction
// percent-encoded. The address itself is edited as it is.
#pragma once

#include "base/Text.h"
#include "ui/LineField.h"

namespace tabulon {

/// The field. Addresses may have any length.
class AddressField : public LineField {
    Q_OBJECT

public:
    /// `parent` owns the field.
    explicit AddressField(QWidget* parent);

    /// Shows the address (UTF-8). Does not emit `addressEdited`. Null is shown as an empty text.
    void setAddress(const Text& address);

signals:
    /// Emitted when the user has changed the address, which is not encoded here.
    void addressEdited(const QString& address);

protected:
    /// Shows the address as it is, before the user edits it.
    void focusInEvent(QFocusEvent* event) override;
    /// Shows the address percent-encoded, unless the field's own menu takes the keyboard.
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// Shows the address, percent-encoded if `coded` is true. Keeps the cursor if the text stays the same.
    void showAddress(bool coded);

    /// The address as it is, with what the user has typed.
    QString address_;
};

} // namespace tabulon
