# Nothing but the system.
