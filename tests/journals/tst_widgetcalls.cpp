#include "listreference.h"

#include "customwidget/listview.h"
#include "factorydebug/factorydebugactivity.h"
#include "factorydebug/factorydebugview.h"
#include "factorydebug/viewonscreen.h"
#include "kvappframework/activityproperty.h"
#include "kvwidget/baseview.h"
#include "kvwidget/cboolbutton.h"
#include "kvwidget/kvbackgroundimage.h"
#include "kvwidget/kvdislabel.h"
#include "kvwidget/kvhorstrbutton.h"
#include "kvwidget/kviconbutton.h"
#include "kvwidget/kvlockbutton.h"
#include "kvwidget/popupview.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "system/csysctrlpage.h"
#include "system/vendordataview.h"

#include <QFont>
#include <QGroupBox>
#include <QHash>
#include <QLabel>
#include <QMap>
#include <QMetaMethod>
#include <QPointer>
#include <QRegularExpression>
#include <QtTest>

#include <dlfcn.h>

/// What is said to widgets while the menu and each page are built and left: every call, its
/// arguments and its place in the order, with the traces and the commands between.
/// "./test --accept-journals" renews the list.
class TestWidgetCalls : public QObject
{
    Q_OBJECT

private slots:
    void everyPageIsBuiltAndLeftByTheseCalls();
};

namespace
{

/// What was said to one widget before another one's turn.
struct Turn
{
    const QObject *object;
    QString name;
    QString calls;
};

QList<Turn> &turns()
{
    static QList<Turn> all;
    return all;
}

thread_local bool isRecording = false; // devices have threads of their own

/// The commands that the unit's shell has been given since.
void takeCommands()
{
    static qint64 heard = 0;
    const hardware::Journal &journal = unitlink::unit().journal();
    const QStringList commands = journal.lines(QStringLiteral("/^shell /"), heard);
    for (const QString &line : commands) {
        turns().append({nullptr, line.section(QLatin1Char(' '), 1), QStringLiteral(" command")});
    }
    heard = journal.end();
}

void heading(const char *text)
{
    takeCommands();
    turns().append({nullptr, QStringLiteral("--"), QLatin1Char(' ') + QLatin1String(text)});
}

/// Traces stand where they are made, but for those that lists make as often as they are laid out.
void takeTrace(QtMsgType, const QMessageLogContext &, const QString &line)
{
    static const QRegularExpression form(
        QStringLiteral("^\\[Info\\] .*\\[ (\\S+) : \\d+ \\]  (.*)$"));
    static const QRegularExpression list(QStringLiteral("model|delegate|lvscrollbar"));
    const QRegularExpressionMatch match = form.match(line);
    if (isRecording && match.hasMatch() && !match.captured(1).contains(list)) {
        takeCommands();
        turns().append({nullptr, match.captured(2), QStringLiteral(" trace")});
    }
}

/// The class, and a number that counts those of the class.
QString nameOf(const QObject *object)
{
    static QHash<const QObject *, QPair<QPointer<const QObject>, QString>> names;
    static QMap<QString, int> counts;
    auto &known = names[object];
    const QString type = QString::fromLatin1(object->metaObject()->className());
    if (known.first.isNull() || !known.second.startsWith(type)) {
        // The address may be that of an earlier widget, or this one a part of another class.
        known = {object, QStringLiteral("%1 %2").arg(type).arg(++counts[type])};
    }
    return known.second;
}

/// Neighbours to whom the same is said share a line.
QStringList lines()
{
    QStringList all;
    for (int i = 0; i < turns().size(); ++i) {
        QString names = turns().at(i).name;
        while (i + 1 < turns().size() && turns().at(i + 1).calls == turns().at(i).calls) {
            names += QLatin1String(", ") + turns().at(++i).name;
        }
        all.append(names + QLatin1Char(':') + turns().at(i).calls);
    }
    return all;
}

template <typename Value> QString shown(const Value &value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

QString shown(const QPixmap &pixmap)
{
    return QStringLiteral("%1x%2").arg(pixmap.width()).arg(pixmap.height());
}

QString shown(const QColor &color)
{
    return color.name(QColor::HexArgb);
}

/// The family is the machine's.
QString shown(const QFont &font)
{
    return QStringLiteral("%1 pt, %2 px").arg(font.pointSize()).arg(font.pixelSize());
}

/// Notes a call, if it is to an object, but not those that it leads to.
class Call
{
public:
    template <typename... Values>
    Call(const QObject *object, const char *name, const Values &...values)
    {
        if (++depth > 1 || !isRecording || object == nullptr) {
            return;
        }
        takeCommands();
        if (turns().last().object != object) {
            turns().append({object, QString(), QString()});
        }
        turns().last().name = nameOf(object); // it has become more since its first constructor
        turns().last().calls += QStringLiteral(" %1(%2)").arg(
            QLatin1String(name), QStringList({shown(values)...}).join(QLatin1String(", ")));
    }

    ~Call() { --depth; }

private:
    Q_DISABLE_COPY(Call)

    static thread_local int depth;
};

thread_local int Call::depth = 0;

/// The library's function behind this program's own of the same name.
template <typename Function, typename Method> Function original(Method own)
{
    void *address = nullptr;
    memcpy(&address, &own, sizeof address);
    Dl_info info;
    return dladdr(address, &info) == 0
        ? nullptr
        : reinterpret_cast<Function>(dlsym(RTLD_NEXT, info.dli_sname));
}

} // namespace

#define RECORD_0(Class, method)                                                                    \
    void Class::method()                                                                           \
    {                                                                                              \
        void (Class::*const own)() = &Class::method;                                               \
        static const auto next = original<void (*)(Class *)>(own);                                 \
        const Call call(this, #method);                                                            \
        next(this);                                                                                \
    }

#define RECORD_1(Class, method, Parameter)                                                         \
    void Class::method(Parameter value)                                                            \
    {                                                                                              \
        void (Class::*const own)(Parameter) = &Class::method;                                      \
        static const auto next = original<void (*)(Class *, Parameter)>(own);                      \
        const Call call(this, #method, value);                                                     \
        next(this, value);                                                                         \
    }

#define RECORD_2(Class, method, First, Second)                                                     \
    void Class::method(First first, Second second)                                                 \
    {                                                                                              \
        void (Class::*const own)(First, Second) = &Class::method;                                  \
        static const auto next = original<void (*)(Class *, First, Second)>(own);                  \
        const Call call(this, #method, first, second);                                             \
        next(this, first, second);                                                                 \
    }

RECORD_0(QObject, deleteLater)
RECORD_0(QWidget, show)
RECORD_0(QWidget, hide)
RECORD_0(QWidget, raise)
RECORD_0(QWidget, repaint)
RECORD_1(QWidget, setGeometry, const QRect &)
RECORD_1(QWidget, resize, const QSize &)
RECORD_1(QWidget, setEnabled, bool)
RECORD_1(QWidget, setFocus, Qt::FocusReason)
RECORD_1(QWidget, setFocusPolicy, Qt::FocusPolicy)
RECORD_1(QWidget, setFont, const QFont &)
RECORD_1(QWidget, setStyleSheet, const QString &)
RECORD_2(QWidget, setAttribute, Qt::WidgetAttribute, bool)
RECORD_1(QWidget, setWindowTitle, const QString &)
RECORD_2(QWidget, setMaximumSize, int, int)
RECORD_2(QWidget, setMinimumSize, int, int)
RECORD_1(QAbstractButton, setChecked, bool)
RECORD_1(QAbstractButton, setText, const QString &)
RECORD_1(QGroupBox, setTitle, const QString &)
RECORD_1(QLabel, setAlignment, Qt::Alignment)
RECORD_1(QLabel, setIndent, int)
RECORD_1(QLabel, setText, const QString &)
RECORD_1(QLabel, setTextFormat, Qt::TextFormat)
RECORD_1(QLabel, setWordWrap, bool)
RECORD_1(CBoolButton, setButtonID, const QString &)
RECORD_1(CBoolButton, setOffImage, const QPixmap &)
RECORD_1(CBoolButton, setOnImage, const QPixmap &)
RECORD_1(CBoolButton, setState, bool)
RECORD_1(KvBackgroundImage, setFitPixmapSize, bool)
RECORD_1(KvBackgroundImage, setPixmap, const QPixmap &)
RECORD_1(KvDisLabel, setAdaptiveFontSize, const bool &)
RECORD_1(KvHorStrButton, setButtonId, QString)
RECORD_1(KvHorStrButton, setDisablePixmap, QPixmap)
RECORD_1(KvHorStrButton, setDisplayString, QString)
RECORD_1(KvHorStrButton, setNormalPixmap, QPixmap)
RECORD_1(KvHorStrButton, setPressPixmap, QPixmap)
RECORD_1(KvIconButton, setButtonID, const QString &)
RECORD_1(KvIconButton, setDisableImage, const QPixmap &)
RECORD_1(KvIconButton, setDisableMode, const DisableMode &)
RECORD_1(KvIconButton, setDisableState, const bool &)
RECORD_1(KvIconButton, setDisplayText, QString)
RECORD_1(KvIconButton, setNormalImage, const QPixmap &)
RECORD_1(KvIconButton, setNormalTextColor, const QColor &)
RECORD_1(KvIconButton, setOverImage, const QPixmap &)
RECORD_1(KvIconButton, setPressImage, const QPixmap &)
RECORD_1(KvIconButton, setPressTextColor, const QColor &)
RECORD_1(KvIconButton, setShowMode, const ShowMode &)
RECORD_1(KvIconButton, setTextSize, int)
RECORD_1(KvLockButton, setButtonID, QString)
RECORD_1(KvLockButton, setIsDown, bool)
RECORD_1(PopupView, setButtonPosition, ButtonPosition)
RECORD_1(PopupView, setButtonType, ButtonType)
RECORD_1(PopupView, setCancelText, const QString &)
RECORD_1(PopupView, setOkText, const QString &)
RECORD_1(PopupView, setPopupViewId, const QString &)
RECORD_1(PopupView, setShowTimeout, int)
RECORD_1(PopupView, setText, const QString &)

/// The names of Qt's own parts are Qt's affair.
void QObject::setObjectName(const QString &name)
{
    void (QObject::*const own)(const QString &) = &QObject::setObjectName;
    static const auto next = original<void (*)(QObject *, const QString &)>(own);
    const Call call(name.startsWith(QLatin1String("qt_")) ? nullptr : this, __func__, name);
    next(this, name);
}

/// A virtual function has no address of its own to ask for.
void kvappframework::ActivityProperty::setUiObj(QWidget *object)
{
    static const auto next = reinterpret_cast<void (*)(ActivityProperty *, QWidget *)>(
        dlsym(RTLD_NEXT, "_ZN14kvappframework16ActivityProperty8setUiObjEP7QWidget"));
    const Call call(object, "setUiObj");
    next(this, object);
}

QMetaObject::Connection QObject::connectImpl(const QObject *sender, void **signal,
                                             const QObject *receiver, void **slot,
                                             QtPrivate::QSlotObjectBase *object,
                                             Qt::ConnectionType type, const int *types,
                                             const QMetaObject *senderMetaObject)
{
    static const auto next = original<decltype(&QObject::connectImpl)>(&QObject::connectImpl);
    int index = -1;
    void *question[] = {&index, signal};
    senderMetaObject->d.static_metacall(nullptr, QMetaObject::IndexOfMethod, 0, question);
    const int offset = senderMetaObject->methodOffset();
    // QObject's own signal is for Qt's accessibility, which is not always there.
    const bool isMeant = senderMetaObject != &QObject::staticMetaObject;
    const Call call(isMeant ? sender : nullptr, "connect",
                    senderMetaObject->method(offset + index).name().constData(),
                    receiver == nullptr ? "nobody" : receiver->metaObject()->className(), type);
    return next(sender, signal, receiver, slot, object, type, types, senderMetaObject);
}

namespace
{

/// Pages are given their titles as they are made, by no call of their own.
template <typename Page> void listTitles(const QList<Page *> &pages)
{
    for (const Page *page : pages) {
        turns().append({page, nameOf(page),
                        QStringLiteral(" is ") + shown(page->property("title").toString())});
    }
}

void press(FactoryDebugView &view, const char *id)
{
    heading(id);
    view.buttonClicked(QString::fromLatin1(id));
    listTitles(view.findChildren<BaseView *>());
    listTitles(gpsPages());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void openDialog(FactoryDebugView &view)
{
    auto *list = view.findChild<ListView *>();
    heading("Auto Detect");
    view.findChild<VendorDataView *>()->listClickedSlot(list->model()->index(4, 0));
}

void workTheSystemPage(FactoryDebugView &view)
{
    auto *page = view.findChild<CSysCtrlPage *>();
    heading("the tuner without a stick, and with one");
    for (const char *root : {"", "/media/usb0"}) {
        page->uDevRootPathSlot(QString::fromLatin1(root));
        for (const int code : {7, 8, 9}) {
            page->doDabMsg(static_cast<unsigned char>(code));
        }
    }
    heading("idDabBtn");
    page->btnReleasedSlot(QStringLiteral("idDabBtn"));
    heading("idCpBtn");
    page->btnReleasedSlot(QStringLiteral("idCpBtn"));
    heading("idTouchBtn");
    page->btnReleasedSlot(QStringLiteral("idTouchBtn"));
    heading("the shade, twice");
    emit page->sigShowMaskBg();
    emit page->sigShowMaskBg();
}

void visitPages(FactoryDebugView &view)
{
    for (const MenuEntry &entry : menu) {
        press(view, entry.id);
        if (qstrcmp(entry.id, "vendordata") == 0) {
            openDialog(view);
        } else if (qstrcmp(entry.id, "sysCtrl") == 0) {
            workTheSystemPage(view);
        }
        press(view, "return");
    }
    press(view, "idCapture");
}

} // namespace

void TestWidgetCalls::everyPageIsBuiltAndLeftByTheseCalls()
{
#ifdef __arm__
    QSKIP("Debian's Qt for this processor also calls its own functions by way of the program's.");
#endif
    TestUnit unit;
    FactoryDebugctivity activity;
    isRecording = true;
    const QtMessageHandler handler = qInstallMessageHandler(takeTrace);
    heading("the menu");
    activity.onCreat();
    auto *view = qobject_cast<FactoryDebugView *>(activity.getProperty()->getUiObj());
    visitPages(*view);
    heading("the end");
    activity.onDestory();
    qInstallMessageHandler(handler);
    isRecording = false;
    qDeleteAll(gpsPages());

    const QString complaint = listComplaint(QStringLiteral("widgetcalls"), lines());
    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
}

FACTORY_TEST_MAIN(TestWidgetCalls)
#include "tst_widgetcalls.moc"
