import WendlowEditorFloor

// The piece of a card behind one of its rows.
CardSlice {}
