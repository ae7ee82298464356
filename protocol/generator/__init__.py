"""The generator of what is made from the description of the protocol."""
