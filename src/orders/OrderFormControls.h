#pragma once

#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;
class QWidget;

namespace ordwell {

// Every control of the order form, by its name and index. The form's parts (header, lines,
// item entry, lists, receiving ...) all work on these one set of controls.
struct OrderFormControls {
    std::array<QLineEdit*, 8> txtheader{};
    std::array<QLabel*, 8> lblheader{};
    std::array<QPushButton*, 6> cmdbutton{};
    std::array<QPushButton*, 5> cmdnavbutton{};
    QLabel* lblnavinfo = nullptr;
    QPushButton* cmdcancelld = nullptr;
    QPushButton* cmdstartorder = nullptr;
    QPushButton* cmdedit = nullptr;
    QPushButton* cmdcancelord = nullptr;
    QCheckBox* chkunknown = nullptr;
    std::array<QLineEdit*, 5> txtitem{};
    std::array<QLabel*, 5> lblitem{};
    QPushButton* cmdfinditem = nullptr;
    QPushButton* cmdrecv = nullptr;
    QPushButton* cmdemail = nullptr;  // "E-mail Order...": the shown order to the vendor by mail
    QPushButton* cmdpeppol = nullptr; // "Export as Peppol Order...": the shown order as UBL XML
    QLineEdit* txtrcvqty = nullptr;
    QLabel* lblrcvqty = nullptr;
    QTableWidget* flxitems = nullptr;
    QLabel* lblinfo = nullptr;
    QWidget* entrySpacer = nullptr; // keeps the entry boxes over their grid columns
};

// Header box indices.
namespace Header {
enum { OrderNumber, OrderDate, ContactName, Reference, Notes1, Notes2, Status, Total };
}
// The longest scan the code box takes: a GS1 case label or a vendor's barcode before its rules
// strip it may be much longer than the code it gives (at most ItemCodeLength).
inline constexpr int ScanLength = 100;

// Entry box indices.
namespace Entry {
enum { Code, Description, Qty, Price, Pack };
}
// Main button row indices.
namespace MainButton {
enum { NewOrder, LoadOrder, PrintOrder, ExportOrder, ReceiveOrder, Exit };
}

} // namespace ordwell
