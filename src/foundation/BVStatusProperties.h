// SPDX-License-Identifier: MIT
#pragma once

/// Declares the fourteen status properties that style sheets select on, and the bits that store
/// them.
///
/// Belongs at the top of a widget class, after Q_OBJECT; members that follow are private. Only
/// BVWidgetStatus::setStatusProperty() writes the properties; a class that uses the macro calls
/// BVWidgetStatusPropertyDispatcher::dispatch(this, this) in its constructor, so that every change
/// of its flags reaches them.
// clang-format off
#define BV_STATUS_PROPERTIES \
    Q_PROPERTY(bool needInputStatus MEMBER m_needInputStatus DESIGNABLE false) \
    Q_PROPERTY(bool userEditStatus MEMBER m_userEditStatus DESIGNABLE false) \
    Q_PROPERTY(bool differentStatus MEMBER m_differentStatus DESIGNABLE false) \
    Q_PROPERTY(bool ruvixEnabledStatus MEMBER m_ruvixEnabledStatus DESIGNABLE false) \
    Q_PROPERTY(bool ruvixStandardChanged MEMBER m_ruvixStandardChanged DESIGNABLE false) \
    Q_PROPERTY(bool ruvixActiveStatus MEMBER m_ruvixActiveStatus DESIGNABLE false) \
    Q_PROPERTY(bool ruvixInvalidStatus MEMBER m_ruvixInvalidStatus DESIGNABLE false) \
    Q_PROPERTY(bool standardEnabledStatus MEMBER m_standardEnabledStatus DESIGNABLE false) \
    Q_PROPERTY(bool standardDefinedStatus MEMBER m_standardDefinedStatus DESIGNABLE false) \
    Q_PROPERTY(bool standardChangedStatus MEMBER m_standardChangedStatus DESIGNABLE false) \
    Q_PROPERTY(bool defaultChangedStatus MEMBER m_defaultChangedStatus DESIGNABLE false) \
    Q_PROPERTY(bool standardDefaultStatus MEMBER m_standardDefaultStatus DESIGNABLE false) \
    Q_PROPERTY(bool standardLockedStatus MEMBER m_standardLockedStatus DESIGNABLE false) \
    Q_PROPERTY(bool compareDifferentStatus MEMBER m_compareDifferentStatus DESIGNABLE false) \
private: \
    bool m_needInputStatus = false; \
    bool m_userEditStatus = false; \
    bool m_differentStatus = false; \
    bool m_ruvixEnabledStatus = false; \
    bool m_ruvixStandardChanged = false; \
    bool m_ruvixActiveStatus = false; \
    bool m_ruvixInvalidStatus = false; \
    bool m_standardEnabledStatus = false; \
    bool m_standardDefinedStatus = false; \
    bool m_standardChangedStatus = false; \
    bool m_defaultChangedStatus = false; \
    bool m_standardDefaultStatus = false; \
    bool m_standardLockedStatus = false; \
    bool m_compareDifferentStatus = false;
// clang-format on
