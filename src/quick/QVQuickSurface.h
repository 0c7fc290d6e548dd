#pragma once

#include "flow/QVDrawGeometry.h"
#include "flow/QVRenderDrawFlow.h"
#include "flow/QVRenderDrawSurface.h"
#include "platform/QVTimer.h"
#include "quick/QVQuickBar.h"
#include "quick/QVQuickPad.h"
#include "quick/QVQuickPicture.h"
#include "quick/QVQuickStroke.h"
#include "quick/QVQuickValues.h"

#include <array>
#include <memory>

/// The drawing captcha as an item: what the flow wants shown, as properties for the parts in QML, and what
/// the user does, for the flow.
class QVQuickSurface : public QVQuickPad,
                       private QVRenderDrawSurface,
                       private QVRenderDrawObserver,
                       private QVRenderDrawViewDelegate
{
    Q_OBJECT
    QML_NAMED_ELEMENT(QuarvoSurface)
    /// Whether it is a panel, which asks for its picture by itself. A popup's surface is told to begin.
    Q_PROPERTY(bool isEmbedded MEMBER m_isEmbedded NOTIFY shown)
    Q_PROPERTY(QString vid READ vid WRITE setVid NOTIFY identityChanged)
    Q_PROPERTY(QString scene READ scene WRITE setScene NOTIFY identityChanged)
    Q_PROPERTY(QVQuickPicture *picture MEMBER m_picture)
    Q_PROPERTY(QVQuickStroke *stroke MEMBER m_stroke)
    /// What traces are measured in: the item, or as much of it as its content can fill.
    Q_PROPERTY(QRectF traceArea MEMBER m_traceArea)

    /// How high what lies below the content is.
    Q_PROPERTY(double belowContent MEMBER m_belowContent NOTIFY placed)
    Q_PROPERTY(double pictureAspect READ pictureAspect CONSTANT)
    Q_PROPERTY(double contentAspect READ contentAspect NOTIFY placed)
    Q_PROPERTY(double contentLift READ contentLift NOTIFY placed)
    Q_PROPERTY(double embeddedWidth READ embeddedWidth NOTIFY placed)

    Q_PROPERTY(QVQuickBar *prompt READ prompt CONSTANT)
    Q_PROPERTY(QVQuickBar *error READ error CONSTANT)
    Q_PROPERTY(QVQuickBar *success READ success CONSTANT)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY shown)
    Q_PROPERTY(bool hasPicture READ hasPicture NOTIFY shown)
    Q_PROPERTY(bool isCharVerify READ isCharVerify NOTIFY shown)
    Q_PROPERTY(QString caption READ caption NOTIFY shown)
    Q_PROPERTY(bool isHelpShown READ isHelpShown NOTIFY shown)
    Q_PROPERTY(bool isRefreshShown READ isRefreshShown NOTIFY shown)
    Q_PROPERTY(bool isRefreshEnabled READ isRefreshEnabled NOTIFY shown)
    Q_PROPERTY(bool isOutage READ isOutage NOTIFY shown)
    Q_PROPERTY(QString adWord READ adWord NOTIFY shown)
    Q_PROPERTY(bool isDrawingEnabled READ isDrawingEnabled NOTIFY isDrawingEnabledChanged)
    Q_PROPERTY(bool isAnswerChecked READ isAnswerChecked NOTIFY shown)

public:
    explicit QVQuickSurface(QQuickItem *parent = nullptr);
    ~QVQuickSurface() override;

    /// Makes the flow of a popup, whose end \a delegate hears.
    void begin(QVVerifyStyle style, const QVIdentity &identity, QVRenderDrawViewDelegate *delegate);
    /// What decides; null before it has begun.
    [[nodiscard]] QVRenderDrawFlow *flow() const { return m_flow.get(); }

    [[nodiscard]] QString vid() const { return m_identity.ownVid; }
    void setVid(const QString &vid);
    [[nodiscard]] QString scene() const { return m_identity.ownScene; }
    void setScene(const QString &scene);

    [[nodiscard]] QVQuickBar *prompt() { return &bar(Bar::Prompt); }
    [[nodiscard]] QVQuickBar *error() { return &bar(Bar::Error); }
    [[nodiscard]] QVQuickBar *success() { return &bar(Bar::Success); }
    [[nodiscard]] bool isLoading() const { return m_isLoading && !m_clearing.isActive(); }
    [[nodiscard]] bool hasPicture() const override { return m_hasPicture; }
    [[nodiscard]] bool isCharVerify() const { return m_isCharVerify; }
    [[nodiscard]] QString caption() const { return m_caption.text(); }
    [[nodiscard]] bool isHelpShown() const { return m_isHelpShown; }
    [[nodiscard]] bool isRefreshShown() const { return m_isRefreshShown; }
    [[nodiscard]] bool isRefreshEnabled() const { return m_isRefreshEnabled; }
    [[nodiscard]] bool isOutage() const { return m_isOutage; }
    [[nodiscard]] QString adWord() const { return m_adWord; }
    [[nodiscard]] bool isDrawingEnabled() const { return m_isDrawingEnabled; }
    [[nodiscard]] bool isAnswerChecked() const { return m_isAnswerChecked; }

    [[nodiscard]] static double pictureAspect() { return QVDrawGeometry::pictureAspect; }
    [[nodiscard]] double contentAspect() const { return QVDrawGeometry::contentAspect(m_isCharVerify); }
    [[nodiscard]] double contentLift() const
    {
        return QVDrawGeometry::contentLift(m_isEmbedded ? QVVerifyStyleEmbed : QVVerifyStylePopup,
                                           m_belowContent);
    }
    [[nodiscard]] double embeddedWidth() const
    {
        return QVDrawGeometry::embeddedWidth(size(), m_isCharVerify, m_belowContent);
    }

    Q_INVOKABLE void refresh();
    Q_INVOKABLE void help();
    Q_INVOKABLE void retry();
    Q_INVOKABLE void openAdvertisement();
    Q_INVOKABLE void answer(const QString &characters);
    Q_INVOKABLE void reset();

Q_SIGNALS:
    void identityChanged();
    /// Something is to be shown otherwise.
    void shown();
    /// The content has another place or size.
    void placed();
    void isDrawingEnabledChanged();
    /// The picture has been there for as long as one may be.
    void pictureExpired();
    void ready();
    void wrongAnswer();
    void outageStarted();
    void failed(QVQuickError error);
    void passed(const QString &token);
    void expired();
    void alternativeRequested();
    /// The user closes the popup.
    void closeRequested();

protected:
    void componentComplete() override;
    void updatePolish() override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void geometryChange(const QRectF &now, const QRectF &before) override;

private:
    [[nodiscard]] QVQuickBar &bar(Bar which) { return m_bars.at(std::size_t(which)); }
    void enterScene();
    void lookWhetherSeen();
    void show(const QImage &picture);

    void slideIn(Bar which, const QVText &text, bool acceptsTouches) override;
    void slideOut(Bar which) override;
    [[nodiscard]] bool hasSuperview() const override;
    void showLoadingAnimation() override;
    void hiddenLoadingAnimation() override;
    void setPicture(const QVPicture &picture) override;
    /// The scene graph scales.
    [[nodiscard]] QSize pictureSize() const override { return {}; }
    void clearPicture() override;
    void showFailedPicture() override;
    void updateContentWidthHeightQVVerifyPercentage(bool isCharVerify) override;
    void setCaption(const QVText &caption) override;
    void setHelpButtonShown(bool isShown) override;
    void setRefreshButtonShown(bool isShown) override;
    void setRefreshButtonEnabled(bool enabled) override;
    void setOutage(bool outage) override;
    void setAdLinkword(const std::shared_ptr<QVGetRefreshResponseModel> &answer) override;
    void setDrawingEnabled(bool enabled) override;
    [[nodiscard]] bool isSeen() const override;
    [[nodiscard]] QRectF traceFrame() const override;
    [[nodiscard]] QRectF imageFrame() const override;
    void beginStroke(QPointF location) override;
    void extendStroke(QPointF location) override;
    void resetUIs() override;
    void setCharInputBusy(bool busy) override;
    void pictureHasExpired() override;
    void outageHasStarted() override;
    void pictureIsReady() override;
    void answerWasWrong() override;
    void attemptHasFailed(const QVError &failure) override;
    void tokenHasExpired() override;
    void renderDrawViewVerifySuccess(const QString &token) override;

    /// Sets \a field and tells the parts in QML.
    template<class Field, class Value>
    void change(Field &field, const Value &value)
    {
        field = value;
        Q_EMIT shown();
    }

    std::shared_ptr<QVRenderDrawFlow> m_flow;
    QVIdentity m_identity;
    QMetaObject::Connection m_visibility;
    std::array<QVQuickBar, 3> m_bars;
    int m_barCount = 0;
    QPointer<QVQuickPicture> m_picture;
    QPointer<QVQuickStroke> m_stroke;
    QRectF m_traceArea;
    double m_belowContent = 0;
    QVTimer m_clearing;
    QVText m_caption;
    QString m_adWord;
    QString m_adLink;
    bool m_isEmbedded = false;
    bool m_isLoading = false;
    bool m_hasPicture = false;
    bool m_isCharVerify = false;
    bool m_isHelpShown = false;
    bool m_isRefreshShown = false;
    bool m_isRefreshEnabled = true;
    bool m_isOutage = false;
    bool m_isDrawingEnabled = false;
    bool m_isAnswerChecked = false;
};
