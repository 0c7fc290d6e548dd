#pragma once

/// \file
/// Includes all public headers.

#include <Quarvo/QVAppearance.h>
#include <Quarvo/QVClickButton.h>
#include <Quarvo/QVClickButtonDelegate.h>
#include <Quarvo/QVClickManager.h>
#include <Quarvo/QVClickManagerDelegate.h>
#include <Quarvo/QVCloseReason.h>
#include <Quarvo/QVContrast.h>
#include <Quarvo/QVEmbedManager.h>
#include <Quarvo/QVEmbedManagerDelegate.h>
#include <Quarvo/QVEmbedPanel.h>
#include <Quarvo/QVError.h>
#include <Quarvo/QVInvisibleDelegate.h>
#include <Quarvo/QVInvisibleManager.h>
#include <Quarvo/QVPopupPresentation.h>
#include <Quarvo/QVSDKManager.h>
#include <Quarvo/QVServiceAddresses.h>
#include <Quarvo/QuarvoVersion.h>
