"""What a journey stands on: a virtual display, a Wine prefix, eyes and hands."""
