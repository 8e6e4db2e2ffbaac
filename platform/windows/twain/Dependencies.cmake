# Nothing but the system: the source manager is loaded at run time.
