'use strict';

/*
 * The drive, in the view "Robot". The robot does not answer these requests: it
 * reports when the drive's mode or its movement changes.
 */
window.sample = window.sample || {};

(function (sample) {

  const LAST_POINT = 65535;

  const element = (id) => document.getElementById(id);
  const { asText, asNumber } = sample.values;
  const { show } = sample.language;
  const modes = () => Array.from(document.querySelectorAll('[data-mode]'));

  function createDrive(app) {

    const control = (attributes) => app.send('system.drive.control', attributes);

    // null unless it is the number of a point.
    function point() {
      const text = element('drive-point').value.trim();
      const value = Number(text);
      return text !== '' && Number.isInteger(value) && value >= 0 && value <= LAST_POINT ? value : null;
    }

    function step(by) {
      const next = (point() === null ? 0 : point()) + by;
      element('drive-point').value = String(Math.max(0, Math.min(LAST_POINT, next)));
    }

    function go() {
      if (point() === null) {
        show('drive-state', 'drivePointWrong');
        element('drive-point').focus();
      } else {
        show('drive-state', 'driveSent', point());
        control({ drive_point: point() });
      }
    }

    function onMode({ mode }) {
      show('drive-mode', 'driveModeName', asNumber(mode));
      modes().forEach((button) => {
        button.setAttribute('aria-pressed', String(button.dataset.mode === asText(mode)));
      });
    }

    modes().forEach((button) => {
      button.addEventListener('click', () => control({ drive_mode: Number(button.dataset.mode) }));
    });
    show('drive-state', 'driveHint');

    return {
      reactions: [
        ['system.drive.mode', onMode],
        ['system.drive.status', ({ status }) => show('drive-status', 'driveStatusName', asNumber(status))],
        ['system.drive.charge', ({ charge }) => show('drive-charge', 'driveChargeName', asNumber(charge))],
      ],
      buttons: {
        'drive-less': () => step(-1),
        'drive-more': () => step(1),
        'drive-go': go,
        'drive-pause': () => control({ drive_pause: true }),
        'drive-resume': () => control({ drive_pause: false }),
        'charger-go': () => control({ drive_charger: true }),
        'charger-leave': () => control({ drive_charger: false }),
      },
    };
  }

  sample.createDrive = createDrive;

})(window.sample);
