#pragma once

#include "OrvaneApp/surfaces/kit/SheetParts.h"

class AppModel;
class Pill;

/// Gives an adapter a name of its own, the one word that VLAN names carry behind them, so that
/// two identical adapters can be told apart.
class RenameAdapterSheet : public NameSheet
{
    Q_OBJECT

public:
    static constexpr int sheetWidth = 520;

    RenameAdapterSheet(AppModel &model, QString bsdName, QWidget *parent = nullptr);

    /// The first word of the name typed: what the VLAN names will carry.
    [[nodiscard]] static QString previewLabel(const QString &typed);

    [[nodiscard]] HintField *nameField() const { return m_name; }
    [[nodiscard]] QWidget *issue() const { return m_issue; }
    [[nodiscard]] Pill *preview() const { return m_preview; }

private:
    void showModel();

    AppModel &m_model;
    QString m_bsdName;
    HintField *m_name = nullptr;
    QWidget *m_issue = nullptr;
    Pill *m_preview = nullptr;
};
