#include "BoxLimit.h"

#include <QLineEdit>
#include <QValidator>
#include <QVariant>

namespace ordwell {

namespace {

// Takes out the halves of surrogate pairs that the length limit left behind.
class WholeCharacters : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& text, int& position) const override {
        for (qsizetype i = 0; i < text.size();) {
            const QChar c = text.at(i);
            const bool paired =
                c.isHighSurrogate() ? i + 1 < text.size() && text.at(i + 1).isLowSurrogate() : !c.isLowSurrogate();
            if (c.isHighSurrogate() && paired) {
                i += 2;
            } else if (paired) {
                ++i;
            } else {
                text.remove(i, 1);
                if (position > i)
                    --position;
            }
        }
        return Acceptable;
    }
};

const char* const TypingLimit = "ordwellTypingLimit";

} // namespace

int typingLimit(const QLineEdit* box) {
    const QVariant limit = box->property(TypingLimit);
    return limit.isValid() ? limit.toInt() : box->maxLength();
}

void limitBox(QLineEdit* box, int maxLength) {
    box->setProperty(TypingLimit, maxLength);
    box->setMaxLength(maxLength);
    box->setValidator(new WholeCharacters(box));
}

void showWhole(QLineEdit* box, const QString& text) {
    box->setMaxLength(qMax(typingLimit(box), int(text.size())));
    box->setText(text);
}

void clearBox(QLineEdit* box) {
    box->clear();
    box->setMaxLength(typingLimit(box));
}

} // namespace ordwell
