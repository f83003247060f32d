# The faults scripts/mutants/run makes, one at a time: (name, file, text, replacement).
# Each mutation: a fault a user would notice, made by one text replacement in src/.
M = [
 ("M01 exported status letter", "src/orders/OrderWords.h", 'Exported = QStringLiteral("X")', 'Exported = QStringLiteral("Y")'),
 ("M02 file-exists message", "src/orders/OrderExport.h", "please remove this file before exporting", "please delete this file before exporting"),
 ("M03 Return no longer presses a focused button", "src/common/FormHelpers.cpp", "key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter", "key->key() != Qt::Key_Enter"),
 ("M04 money rounds half down", "src/common/Money.cpp", "if (2 * (r < 0 ? -r : r) >= divisor)", "if (2 * (r < 0 ? -r : r) > divisor)"),
 ("M05 order and lines moved without a transaction", "src/orders/OrderTransitions.cpp", "    Sql::Transaction transaction(db);\n    Status moved = setOrderStatus(db, orderId, letter, today, enteredTotal);\n    if (moved)\n        moved = setLineStatus(db, orderId, letter);\n    if (moved)\n        moved = transaction.commit();", "    Status moved = setOrderStatus(db, orderId, letter, today, enteredTotal);\n    if (moved)\n        moved = setLineStatus(db, orderId, letter);"),
 ("M06 price expiring today refused on save", "src/catalogue/ItemChecks.cpp", "if (expiry < today) {", "if (expiry <= today) {"),
 ("M07 one more than outstanding may be received", "src/orders/Receiving.cpp", "r <= outstanding", "r <= outstanding + 1"),
 ("M08 postcode not upper-cased on save", "src/settings/OrganisationDetails.cpp", "    details[Postcode] = UpperCaseCode(details[Postcode]);\n", ""),
 ("M09 export records end in LF only", "src/orders/ExportRecords.cpp", 'text += record + QLatin1String("\\r\\n");', 'text += record + QLatin1String("\\n");'),
 ("M10 barcode rule skips one too few", "src/orders/BarcodeResolver.cpp", "code.mid(qMax(0, rule.skipfirst))", "code.mid(qMax(0, rule.skipfirst - 1))"),
 ("M11 cancelling keeps the total", "src/orders/OrderTransitions.cpp", 'SET status = ?, totalval = 0 WHERE orderid = ?', 'SET status = ? WHERE orderid = ?'),
 ("M12 printing stamps no print date", "src/orders/OrderTransitions.cpp", 'values << Dates::toStored(today) << Dates::toStored(today);', 'values << QString() << Dates::toStored(today);'),
]
