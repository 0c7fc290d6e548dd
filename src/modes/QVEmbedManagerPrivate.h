#pragma once

#include "flow/QVIdentity.h"
#include "flow/QVRenderDrawViewDelegate.h"
#include "platform/QVDelegate.h"

#include <QPointer>

class QVEmbedManager;
class QVEmbedManagerDelegate;
class QVRenderDrawView;

/// Owns the view until it has a parent, and relays its token.
class QVEmbedManagerPrivate final : public QVRenderDrawViewDelegate
{
public:
    explicit QVEmbedManagerPrivate(QVEmbedManager &manager);
    ~QVEmbedManagerPrivate() override;

    /// Null, with a warning that names \a call, where no panel can be created.
    [[nodiscard]] QVRenderDrawView *renderView(const char *call);
    void renderDrawViewVerifySuccess(const QString &token) override;

    void offerAlternative() const;
    void setIdentity(const QVIdentity &identity);
    [[nodiscard]] QVIdentity identity() const { return m_identity; }

    QVWeakDelegate<QVEmbedManagerDelegate> delegate;

private:
    QVEmbedManager &m_manager;
    QPointer<QVRenderDrawView> m_renderView;
    QVIdentity m_identity;
};
