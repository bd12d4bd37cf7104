'use strict';

/*
 * The robot's settings, read by group or one at a time, and what it tells about
 * itself.
 */
window.sample = window.sample || {};

(function (sample) {

  const TIME_LIMIT = 5000;   // milliseconds for a reply

  const element = (id) => document.getElementById(id);
  const { asText, asRecord, asRecords } = sample.values;
  const { chosen, asShown, fillTable } = sample.fields;
  const { show } = sample.language;

  function createSettings(app) {
    const wait = sample.createWait(TIME_LIMIT, () => show('settings-state', 'noReply'));
    let asked = null;   // what was asked for last

    function get() {
      const group = element('settings-group').value.trim();
      if (group === '') {
        show('settings-state', 'settingsNoGroup');
        element('settings-group').focus();
        return;
      }
      asked = {
        settings_type: chosen('settings-store'),
        group,
        name: element('settings-name').value.trim(),
      };
      request();
    }

    function request() {
      show('settings-state', 'settingsReading');
      wait.begin();
      app.send('system.settings.get', asked);
    }

    function onLoad({ settings }) {
      wait.end();
      const rows = asRecords(settings)
        .map(({ name, value }) => [asText(name), value])
        .sort(([a], [b]) => a.localeCompare(b));
      fillTable(element('settings-fields'), rows);
      show('settings-state', rows.length > 0 ? 'settingsLoaded' : 'settingsNone', rows.length);
    }

    function onUpdate() {
      if (asked === null) {
        show('settings-state', 'settingsChanged');
      } else {
        request();
      }
    }

    // The groups that a robot mostly has, to be touched instead of typed.
    function chooseGroup(button) {
      const store = document.querySelector(`input[name="settings-store"][value="${button.dataset.store}"]`);
      store.checked = true;
      element('settings-group').value = button.dataset.group;
      element('settings-name').value = '';
      get();
    }

    element('settings').addEventListener('submit', (event) => {
      event.preventDefault();
      get();
    });
    document.querySelectorAll('[data-group]').forEach((button) => {
      button.addEventListener('click', () => chooseGroup(button));
    });
    fillTable(element('settings-fields'), []);
    show('settings-state', 'settingsHint');

    return {
      reactions: [
        ['system.settings.load', onLoad],
        ['system.settings.update', onUpdate],
      ],
      buttons: {},
    };
  }

  function createEnvironment(app) {
    const FIELDS = ['name', 'id', 'uuid_robot', 'uuid_owner', 'date_of_creation'];
    const wait = sample.createWait(TIME_LIMIT, () => show('environment-state', 'noReply'));
    let environment = asRecord(null);
    let isRead = false;

    function read() {
      wait.begin();
      show('environment-state', 'environmentReading');
      app.send('system.environment.get', {});
    }

    function draw() {
      FIELDS.forEach((name) => {
        const text = asText(environment[name]).trim();
        const time = name === 'date_of_creation' && !Number.isNaN(Date.parse(text));
        element(`environment-${name}`).textContent = time
          ? new Date(text).toLocaleString(document.documentElement.lang, { dateStyle: 'long', timeStyle: 'short' })
          : asShown(text);
      });
    }

    function onLoad({ environment: loaded }) {
      wait.end();
      environment = asRecord(loaded);
      isRead = true;
      draw();
      show('environment-state', 'environmentRead', app.clockTime());
    }

    draw();
    show('environment-state', 'environmentUnknown');
    sample.language.onChange(draw);

    return {
      onView: () => {
        if (!isRead) {
          read();
        }
      },
      reactions: [['system.environment.load', onLoad]],
      buttons: { 'environment-read': read },
    };
  }

  sample.createSettings = createSettings;
  sample.createEnvironment = createEnvironment;

})(window.sample);
