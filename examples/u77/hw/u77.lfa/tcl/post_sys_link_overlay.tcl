# Runs behind the overlay of the system link.
validate_bd_design
