"""Stands in for the comtypes package where there is no Windows: see client."""


class COMError(Exception):
    def __init__(self, hresult, text, details):
        super().__init__(hresult, text, details)
        self.hresult, self.text, self.details = hresult, text, details
