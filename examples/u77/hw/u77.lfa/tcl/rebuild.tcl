# Rebuilds the project of the static region.
open_checkpoint dcp/u77_bb_locked.dcp
