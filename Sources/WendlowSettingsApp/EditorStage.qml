import WendlowSettingsApp

// The Editor's stage until its faces are there. It names the world that the World menu has put in force.
PlainStage {
    required property EditorWorlds worlds

    subject: worlds.title
}
