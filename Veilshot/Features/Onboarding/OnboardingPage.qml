pragma ComponentBehavior: Bound

import QtQuick
import Veilshot.DesignSystem
import Veilshot.Features

/// A page of the walkthrough: an illustration over a title and a text.
Item {
    id: page

    required property int step
    required property OnboardingStore onboarding
    required property HistoryStore history
    required property DesktopMotion motion
    /// Whether anyone sees it, and not only how it goes.
    required property bool isSeen

    readonly property list<string> titles: [
        "Share screenshots, not your details",
        "Spots what’s sensitive",
        "Private by design",
        "One shortcut, from anywhere",
        "You’re all set"
    ]
    readonly property list<string> bodies: [
        "Veilshot finds names, emails, card numbers and faces in your screenshots and hides them before anyone else sees them.",
        "Paste a screenshot and sensitive details are blurred in seconds. Remove any area you want to keep, or draw your own.",
        "Text recognition and face detection run entirely on this Mac. Screenshots are never uploaded, and originals are never saved.",
        "Press ⌘⇧B in any app to open Quick Paste. Veilshot also lives in your menu bar, one click away.",
        "Copy a screenshot and paste it in. Review what’s hidden, then copy or export the protected image."
    ]

    /// What only one of the pages has.
    component Only: Repeater {
        required property int step

        model: page.step === step ? 1 : 0
    }

    Item {
        id: hero

        width: parent.width
        height: 310

        Only {
            step: OnboardingStep.Step.Welcome

            WelcomeHero {
                anchors.fill: parent
                motion: page.motion
                isSeen: page.isSeen
            }
        }
        Only {
            step: OnboardingStep.Step.Detection

            DetectionHero {
                anchors.fill: parent
                motion: page.motion
                isSeen: page.isSeen
            }
        }
        Only {
            step: OnboardingStep.Step.Privacy

            PrivacyHero {
                anchors.fill: parent
                motion: page.motion
                isSeen: page.isSeen
            }
        }
        Only {
            step: OnboardingStep.Step.QuickPaste

            ShortcutHero {
                anchors.fill: parent
                pressCount: page.onboarding.shortcutPressCount
            }
        }
        Only {
            step: OnboardingStep.Step.Ready

            ReadyHero {
                anchors.fill: parent
                motion: page.motion
            }
        }
    }

    Column {
        anchors.top: hero.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        width: 460

        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: page.titles[page.step]
            color: Theme.textPrimary
            font.pixelSize: 28
            font.weight: Font.DemiBold
            font.letterSpacing: -0.6
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Text {
            topPadding: 10
            width: parent.width
            text: page.bodies[page.step]
            color: Theme.textSecondary
            font.pixelSize: 14
            lineHeight: metrics.lineSpacing + 3
            lineHeightMode: Text.FixedHeight
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text

            FontMetrics {
                id: metrics
                font.pixelSize: 14
            }
        }
        Item {
            width: 1
            height: 20
        }
        Only {
            step: OnboardingStep.Step.Privacy

            HistoryChoice {
                width: 460
                history: page.history
            }
        }
    }
}
