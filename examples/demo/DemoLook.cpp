#include "demo/DemoLook.h"

namespace {

const char *const light = R"(
    DemoWindow { background: #f3f5f9; }
    #form, #side { background: white; border: 1px solid #e3e7ef; border-radius: 10px; }
    #title { font-size: 22px; font-weight: 600; color: #1d2433; }
    #subtitle, #side QLabel { color: #667085; font-size: 13px; }
    #result { color: #08875f; font-size: 14px; font-weight: 600; }
    #form QLineEdit { border: 1px solid #d0d5dd; border-radius: 6px; padding: 8px 10px; font-size: 14px;
                      background: white; color: #1d2433; }
    #form QLineEdit:focus { border-color: #418dfb; }
    #signIn { background: #418dfb; color: white; border: none; border-radius: 6px; padding: 11px;
              font-size: 15px; font-weight: 600; }
    #signIn:hover { background: #2f7bea; }
    #signIn:focus { border: 2px solid #1d4f9e; padding: 9px; }
    #signIn:disabled { background: #cfd8e6; }
    #again { border: none; color: #418dfb; background: transparent; font-size: 13px; padding: 4px; }
    QListWidget { border: 1px solid #e3e7ef; border-radius: 6px; background: #fafbfc; color: #344054;
                  font-size: 12px; }
    QTabBar::tab { font-size: 14px; color: #667085; background: transparent; border: none;
                   border-bottom: 2px solid #e3e7ef; padding: 11px 4px; }
    QTabBar::tab:selected { color: #418dfb; border-bottom: 2px solid #418dfb; font-weight: 600; }
    QTabBar::tab:focus { color: #1d4f9e; }
    QCheckBox { font-size: 13px; color: #344054; }
    QComboBox { border: 1px solid #d0d5dd; border-radius: 6px; padding: 6px 10px; background: white;
                font-size: 14px; color: #1d2433; }
    QComboBox:focus { border-color: #418dfb; }
    QComboBox::drop-down { border: none; width: 28px; }
    QComboBox::down-arrow { image: url(:/demo/chevron.png); width: 12px; height: 12px; }
)";

// Added to the rules above by the other looks.

const char *const dark = R"(
    DemoWindow { background: #12151c; }
    #form, #side { background: #1c212c; border-color: #323a4a; }
    #title { color: #f2f4f8; }
    #subtitle, #side QLabel { color: #a3adc0; }
    #result { color: #3fcf9b; }
    #form QLineEdit { background: #12151c; border-color: #3d4659; color: #f2f4f8; }
    QListWidget { background: #12151c; border-color: #323a4a; color: #c9d1e0; }
    QTabBar::tab { color: #a3adc0; border-bottom-color: #323a4a; }
    QTabBar::tab:focus { color: #9cc4ff; }
    QCheckBox, QComboBox { color: #c9d1e0; }
    QComboBox, QComboBox QAbstractItemView { background: #12151c; border-color: #3d4659; }
)";

const char *const loud = R"(
    QWidget { font-family: serif; font-style: italic; }
    QPushButton, QAbstractButton { background: #ffd400; color: #b3005e; border: 3px dashed #b3005e;
                                   padding: 7px; margin: 2px; text-transform: uppercase; }
    QLabel { background: #d8f5d0; color: #20541a; padding: 2px; border: 1px solid #20541a; }
    QLineEdit { background: #fff3b0; border: 2px dotted #b3005e; padding: 12px; }
)";

} // namespace

QString demoStyleSheet(DemoLook look)
{
    QString sheet = QString::fromLatin1(light);
    if (look == DemoLook::Dark)
        sheet += QString::fromLatin1(dark);
    if (look == DemoLook::Loud)
        sheet += QString::fromLatin1(loud);
    return sheet;
}
